#include "platform/SingleInstance.h"

#include "platform/Diagnostics.h"
#include "platform/FileName.h"
#include "platform/InstanceMessage.h"

#include <QCryptographicHash>
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

bool connectTo(QLocalSocket& socket, const QString& address, QDeadlineTimer deadline)
{
    if (address.isEmpty())
        return false;
    socket.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
    socket.connectToServer(address);
    return socket.waitForConnected(int(deadline.remainingTime()));
}

bool isAnothersName(const QString& address)
{
    QLocalSocket socket;
    return connectTo(socket, address, QDeadlineTimer(retryInterval)) && !isOwnProcess(socket);
}

bool isAcknowledged(QLocalSocket& socket, const QByteArray& message, QDeadlineTimer deadline)
{
    socket.write(message);
    while (socket.bytesAvailable() < acknowledgement.size()) {
        if (!socket.waitForReadyRead(int(deadline.remainingTime())))
            return false;
    }
    return socket.readAll() == acknowledgement;
}

/// The same for every way to write the path of one folder, whether it is there or not.
QString nameOf(const QString& folder)
{
    const std::filesystem::path path = encodeFileName(folder).toStdString();
    std::error_code unknown;
    const std::filesystem::path canonical = std::filesystem::weakly_canonical(path, unknown);
    const QByteArray key = QByteArray::fromStdString(unknown ? path.string() : canonical.string());
    return QStringLiteral("morvak-") +
           QString::fromLatin1(QCryptographicHash::hash(key, QCryptographicHash::Sha1).toHex());
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

    enum class Holder { Us, Another, Nobody };

    /// Nobody: there is no locking here.
    [[nodiscard]] Holder take() const
    {
        if (m_file >= 0 && ::flock(m_file, LOCK_EX | LOCK_NB) == 0)
            return Holder::Us;
        return m_file >= 0 && errno == EWOULDBLOCK ? Holder::Another : Holder::Nobody;
    }

    void writeAddress(const QString& address) const
    {
        const QByteArray text = address.toUtf8();
        if (m_file < 0)
            return;
        if (::ftruncate(m_file, 0) != 0 ||
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
    : QObject(parent),
      m_patience(patience),
      m_lock(std::make_unique<Lock>(storeFolder)),
      m_name(nameOf(storeFolder)),
      m_server(std::make_unique<QLocalServer>())
{
    m_server->setSocketOptions(QLocalServer::AbstractNamespaceOption);
    connect(m_server.get(), &QLocalServer::newConnection, this, &SingleInstance::takeClients);
}

SingleInstance::~SingleInstance() = default;

SingleInstance::Outcome SingleInstance::start(const QStringList& files)
{
    const QByteArray message = encodeInstanceMessage(files);
    const QDeadlineTimer deadline(m_patience);
    while (!becomeFirst()) {
        if (message.size() > longestInstanceMessage)
            return fail(QStringLiteral("Morvak draait al en kan niet zoveel bestanden tegelijk aannemen."));
        const Answer answer = handOver(message, deadline);
        if (answer == Answer::Taken)
            return Outcome::HandedOver;
        if (answer == Answer::Refused)
            return fail(
                QStringLiteral("Morvak draait al bij een andere gebruiker, met dezelfde gegevens. "
                               "Sluit het daar en start opnieuw."));
        if (deadline.hasExpired())
            return fail(
                QStringLiteral("Morvak draait al, maar geeft geen antwoord. Sluit het en start opnieuw."));
        QThread::msleep(retryInterval.count());
    }
    return Outcome::First;
}

SingleInstance::Outcome SingleInstance::fail(const QString& problem)
{
    m_problem = problem;
    return Outcome::Failed;
}

/// The holder of the lock starts even when another user's process has taken the name: names are free to all.
bool SingleInstance::becomeFirst()
{
    const Lock::Holder holder = m_lock->take();
    if (holder == Lock::Holder::Another)
        return false;
    if (listen(m_name))
        return true;
    const bool isInUse = m_server->serverError() == QAbstractSocket::AddressInUseError;
    if (holder == Lock::Holder::Nobody || (isInUse && !isAnothersName(m_name)))
        return false;
    if (!listen(QStringLiteral("morvak-") + QUuid::createUuid().toString(QUuid::WithoutBraces)))
        diagnostic(QStringLiteral("⚠️ Een tweede Morvak zal deze niet vinden: ") +
                   m_server->errorString());
    return true;
}

bool SingleInstance::listen(const QString& address)
{
    if (!m_server->listen(address))
        return false;
    m_lock->writeAddress(address);
    return true;
}

/// An address that nobody listens to is that of a Morvak which has ended or is just starting.
SingleInstance::Answer SingleInstance::handOver(const QByteArray& message, QDeadlineTimer deadline) const
{
    Answer answer = Answer::None;
    for (const QString& address : {m_lock->address(), m_name}) {
        QLocalSocket socket;
        if (!connectTo(socket, address, deadline))
            continue;
        if (!isOwnProcess(socket))
            answer = Answer::Refused;
        else if (isAcknowledged(socket, message, deadline))
            return Answer::Taken;
    }
    return answer;
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
