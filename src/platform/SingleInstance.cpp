#include "platform/SingleInstance.h"

#include "platform/Diagnostics.h"
#include "platform/FileName.h"
#include "platform/InstanceMessage.h"

#include <QDeadlineTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QThread>
#include <QTimer>
#include <QUuid>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <unistd.h>

namespace morvak {

namespace {

constexpr std::chrono::milliseconds retryInterval(50);
constexpr std::chrono::seconds slowestClient(5);
constexpr int mostClients = 16;
constexpr QByteArrayView acknowledgement = "ok\n";

bool isOwnProcess(const QLocalSocket& socket)
{
    ucred peer = {};
    socklen_t size = sizeof peer;
    return ::getsockopt(int(socket.socketDescriptor()), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           peer.uid == ::geteuid();
}

bool handOver(const QByteArray& message, const QString& address, QDeadlineTimer deadline)
{
    QLocalSocket socket;
    socket.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
    socket.connectToServer(address);
    if (address.isEmpty() || !socket.waitForConnected(int(deadline.remainingTime())) || !isOwnProcess(socket))
        return false;
    socket.write(message);
    while (socket.bytesAvailable() < acknowledgement.size()) {
        if (!socket.waitForReadyRead(int(deadline.remainingTime())))
            return false;
    }
    return socket.readAll() == acknowledgement;
}

}  // namespace

/// A file in the store folder, locked until the process ends, that says where its holder listens.
class SingleInstance::Lock {
public:
    explicit Lock(const QString& folder)
    {
        const QByteArray path = encodeFileName(folder);
        std::error_code notMade;  // then the file cannot be opened either
        std::filesystem::create_directories(path.toStdString(), notMade);
        m_file =
            ::open((path + "/instance.lock").constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
        if (m_file < 0)
            diagnostic(QStringLiteral("⚠️ Geen vergrendeling mogelijk in %1: %2")
                           .arg(folder, QString::fromLocal8Bit(std::strerror(errno))));
    }
    ~Lock()
    {
        if (m_file >= 0)
            ::close(m_file);
    }
    Q_DISABLE_COPY_MOVE(Lock)

    /// Also true where nothing can be locked: nobody can save there.
    [[nodiscard]] bool take() const
    {
        return m_file < 0 || ::flock(m_file, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
    }

    void writeAddress(const QString& address) const
    {
        const QByteArray text = address.toUtf8();
        if (m_file < 0 || ::ftruncate(m_file, 0) != 0 ||
            ::pwrite(m_file, text.constData(), size_t(text.size()), 0) != text.size())
            diagnostic(QStringLiteral("⚠️ Een tweede Morvak zal deze niet vinden"));
    }

    [[nodiscard]] QString address() const
    {
        char text[128];
        const ssize_t size = ::pread(m_file, text, sizeof text, 0);
        return size > 0 ? QString::fromUtf8(text, size) : QString();
    }

private:
    int m_file = -1;
};

SingleInstance::SingleInstance(const QString& storeFolder, std::chrono::milliseconds patience,
                               QObject* parent)
    : QObject(parent), m_patience(patience), m_lock(std::make_unique<Lock>(storeFolder))
{
}

SingleInstance::~SingleInstance() = default;

SingleInstance::Outcome SingleInstance::start(const QStringList& files)
{
    const QByteArray message = encodeInstanceMessage(files);
    const QDeadlineTimer deadline(m_patience);
    while (!m_lock->take()) {
        if (message.size() > longestInstanceMessage) {
            m_problem = QStringLiteral("Morvak draait al en kan niet zoveel bestanden tegelijk aannemen.");
            return Outcome::Failed;
        }
        // An address that nobody listens to any more is that of a Morvak which has ended or is just starting.
        if (handOver(message, m_lock->address(), deadline))
            return Outcome::HandedOver;
        if (deadline.hasExpired()) {
            m_problem =
                QStringLiteral("Morvak draait al, maar geeft geen antwoord. Sluit het en start opnieuw.");
            return Outcome::Failed;
        }
        QThread::msleep(retryInterval.count());
    }
    listen();
    return Outcome::First;
}

void SingleInstance::listen()
{
    m_server = std::make_unique<QLocalServer>();
    m_server->setSocketOptions(QLocalServer::AbstractNamespaceOption);
    connect(m_server.get(), &QLocalServer::newConnection, this, &SingleInstance::takeClients);
    const QString address = QStringLiteral("morvak-") + QUuid::createUuid().toString(QUuid::WithoutBraces);
    if (!m_server->listen(address))
        diagnostic(QStringLiteral("⚠️ Een tweede Morvak zal deze niet vinden: ") +
                   m_server->errorString());
    m_lock->writeAddress(address);
}

void SingleInstance::takeClients()
{
    while (QLocalSocket* const client = m_server->nextPendingConnection()) {
        connect(client, &QLocalSocket::disconnected, client, &QObject::deleteLater);
        if (m_clients == mostClients || !isOwnProcess(*client)) {
            client->abort();
            continue;
        }
        ++m_clients;
        connect(client, &QObject::destroyed, this, [this] { --m_clients; });
        client->setReadBufferSize(longestInstanceMessage + 1);
        QTimer::singleShot(slowestClient, client, &QLocalSocket::abort);
        connect(client, &QLocalSocket::readyRead, this, [this, client] { readFrom(*client); });
        readFrom(*client);
    }
}

void SingleInstance::readFrom(QLocalSocket& client)
{
    const InstanceMessage message = decodeInstanceMessage(client.peek(longestInstanceMessage + 1));
    if (message.state == InstanceMessage::State::Incomplete)
        return;
    disconnect(&client, &QLocalSocket::readyRead, this, nullptr);
    if (message.state == InstanceMessage::State::Refused) {
        diagnostic(QStringLiteral("⚠️ Bericht van een ander programma geweigerd"));
        client.abort();
        return;
    }
    client.write(acknowledgement.data(), acknowledgement.size());
    client.flush();
    client.disconnectFromServer();
    if (message.files.isEmpty())
        Q_EMIT activationAsked();
    else
        Q_EMIT filesHandedOver(message.files);
}

}  // namespace morvak
