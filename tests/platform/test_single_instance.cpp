#include "platform/FileName.h"
#include "platform/InstanceMessage.h"
#include "platform/SingleInstance.h"
#include "support/Files.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QLocalSocket>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <memory>

#include <sys/stat.h>
#include <unistd.h>

using namespace morvak;
using namespace Qt::StringLiterals;
using Outcome = SingleInstance::Outcome;

namespace {

/// A start of the program in a process of its own.
class Start {
public:
    explicit Start(const QString& store, int pauseMs = 0, const QStringList& files = {},
                   const QString& runtimeFolder = {}, uid_t user = ::geteuid())
    {
        process.setChildProcessModifier([user] {
            if (::setuid(user) != 0)
                ::_exit(2);
        });
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_RUNTIME_DIR"_s, runtimeFolder);
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(MORVAK_INSTANCE_PROBE),
                      QStringList{store, QString::number(pauseMs)} + files);
    }
    ~Start()
    {
        process.kill();
        process.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(Start)

    /// Diagnostic lines left out: they come when they like.
    QByteArray nextLine()
    {
        QByteArray line = "⚠️";
        while (line.startsWith("⚠️")) {
            while (!process.canReadLine() && process.waitForReadyRead(15'000)) {
            }
            line = process.readLine().trimmed();
        }
        return line;
    }

    int exitCode() { return process.waitForFinished(15'000) ? process.exitCode() : -1; }

    QProcess process;
};

QByteArray framed(const QByteArray& body)
{
    QByteArray message(4, '\0');
    message[2] = char(body.size() >> 8);
    message[3] = char(body.size());
    return message + body;
}

}  // namespace

class TestSingleInstance : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void laterStartsHandTheirWishOver();
    void firstMayStillBeStarting();
    void killedHolderBlocksNobody();
    void holderThatEndsIsFollowed();
    void withoutAFolderThereIsOneAsWell();
    void folderThatIsMadeAnewHasTheSameHolder();
    void anotherUserIsTurnedAway();
    void takenNameKeepsNobodyAway();
    void holderThatHangsIsReported();
    void tooLongAWishIsReported();
    void messagesAreRead_data();
    void messagesAreRead();
    void hostileClientsDoNoHarm();

private:
    QTemporaryDir m_folder;
    QString store(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }
};

void TestSingleInstance::laterStartsHandTheirWishOver()
{
    Start first(store("hand/over"));
    QCOMPARE(first.nextLine(), "first");
    QCOMPARE(Start(store("hand/over"), 0, {}, m_folder.path()).exitCode(), 0);
    QCOMPARE(first.nextLine(), "activate");
    QProcess second;  // a file name that is no UTF-8
    second.start(u"/bin/sh"_s, {u"-c"_s, u"exec \"$0\" \"$1\" 0 /a \"$(printf '/caf\\351 1')\""_s,
                                QStringLiteral(MORVAK_INSTANCE_PROBE), store("hand/over")});
    QVERIFY(second.waitForFinished());
    QCOMPARE(second.exitCode(), 0);
    QCOMPARE(first.nextLine(), "/a");
    QCOMPARE(first.nextLine(), "/caf%E9%201");
    Start other(store("other"));
    QCOMPARE(other.nextLine(), "first");
}

void TestSingleInstance::firstMayStillBeStarting()
{
    Start first(store("starting"), 1500);
    QCOMPARE(first.nextLine(), "first");
    Start second(store("starting"));
    Start third(store("starting"), 0, {u"/x"_s});
    QCOMPARE(second.exitCode(), 0);
    QCOMPARE(third.exitCode(), 0);
    const QByteArrayList told = {first.nextLine(), first.nextLine()};
    QVERIFY(told.contains("activate") && told.contains("/x"));
}

void TestSingleInstance::killedHolderBlocksNobody()
{
    {
        Start first(store("killed"));
        QCOMPARE(first.nextLine(), "first");
    }
    Start second(store("killed"));
    QCOMPARE(second.nextLine(), "first");
}

void TestSingleInstance::holderThatEndsIsFollowed()
{
    auto first = std::make_unique<SingleInstance>(store("ends"));
    QCOMPARE(first->start({}), Outcome::First);
    Start second(store("ends"));
    QVERIFY(!second.process.waitForReadyRead(200));
    first.reset();
    QCOMPARE(second.nextLine(), "first");
}

/// No lock can be made, for root neither: something else stands where the folder should be.
void TestSingleInstance::withoutAFolderThereIsOneAsWell()
{
    test::writeFile(store("file"), "no folder");
    Start first(store("file/Morvak"));
    QCOMPARE(first.nextLine(), "first");
    QCOMPARE(Start(store("./file/Morvak"), 0, {u"/x"_s}).exitCode(), 0);
    QCOMPARE(first.nextLine(), "/x");
    Start other(store("file/Other"));
    QCOMPARE(other.nextLine(), "first");
}

void TestSingleInstance::folderThatIsMadeAnewHasTheSameHolder()
{
    Start first(store("gone"));
    QCOMPARE(first.nextLine(), "first");
    QVERIFY(QDir(store("gone")).removeRecursively());
    for (int start = 0; start < 2; ++start) {  // the second finds a lock file that says nothing
        QCOMPARE(Start(store("gone")).exitCode(), 0);
        QCOMPARE(first.nextLine(), "activate");
    }
}

void TestSingleInstance::anotherUserIsTurnedAway()
{
    if (::geteuid() != 0)
        QSKIP("only root can start a program as somebody else");
    const QTemporaryDir shared(QDir::tempPath() + u"/morvak-XXXXXX"_s);
    QVERIFY(::chmod(QFile::encodeName(shared.path()).constData(), 0755) == 0);
    Start first(shared.path());
    QCOMPARE(first.nextLine(), "first");
    Start second(shared.path(), 0, {}, {}, 65534);
    QVERIFY(second.nextLine().contains("andere gebruiker"));
    QCOMPARE(second.exitCode(), 1);
}

void TestSingleInstance::takenNameKeepsNobodyAway()
{
    if (::geteuid() != 0)
        QSKIP("only root can start a program as somebody else");
    const QTemporaryDir shared(QDir::tempPath() + u"/morvak-XXXXXX"_s);
    QVERIFY(::chmod(QFile::encodeName(shared.path()).constData(), 0755) == 0);
    Start hostile(shared.path() + u"/Morvak"_s, 0, {}, {}, 65534);
    QCOMPARE(hostile.nextLine(), "first");
    Start first(shared.path() + u"/Morvak"_s);
    QCOMPARE(first.nextLine(), "first");
    QCOMPARE(Start(shared.path() + u"/Morvak"_s).exitCode(), 0);
    QCOMPARE(first.nextLine(), "activate");
}

void TestSingleInstance::holderThatHangsIsReported()
{
    Start first(store("hangs"), 60'000);
    QCOMPARE(first.nextLine(), "first");
    SingleInstance second(store("hangs"), std::chrono::milliseconds(300));
    QCOMPARE(second.start({}), Outcome::Failed);
    QVERIFY(!second.problem().isEmpty());
}

void TestSingleInstance::tooLongAWishIsReported()
{
    SingleInstance first(store("long"));
    QCOMPARE(first.start({}), Outcome::First);
    SingleInstance second(store("long"));
    QCOMPARE(second.start({u'/' + QString(70'000, u'x')}), Outcome::Failed);
    QVERIFY(!second.problem().isEmpty());
}

void TestSingleInstance::messagesAreRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("result");
    const auto row = [](const char* what, const QByteArray& bytes, const QString& result) {
        QTest::newRow(what) << bytes << result;
    };
    const QByteArray files = encodeInstanceMessage({u"/a"_s, u"/b c"_s});
    row("activate", encodeInstanceMessage({}), u"complete"_s);
    row("files", files, u"complete /a /b c"_s);
    row("cut short", files.chopped(1), u"incomplete"_s);
    row("three bytes", files.first(3), u"incomplete"_s);
    row("too long by its length", QByteArray("\x7F\xFF\xFF\xFF", 4), u"refused"_s);
    row("more than its length", files + 'x', u"refused"_s);
    row("unknown", framed("delete\0"), u"refused"_s);
    row("empty", framed(""), u"refused"_s);
    row("no file", framed(QByteArray("open\0", 5)), u"refused"_s);
    row("no end", framed(QByteArray("open\0/a", 7)), u"refused"_s);
    row("relative file", framed(QByteArray("open\0a\0", 7)), u"refused"_s);
    row("HTTP", "GET / HTTP/1.1\r\n\r\n", u"refused"_s);
}

void TestSingleInstance::messagesAreRead()
{
    QFETCH(QByteArray, bytes);
    const InstanceMessage message = decodeInstanceMessage(bytes);
    const QStringList states = {u"incomplete"_s, u"refused"_s, u"complete"_s};
    QTEST((QStringList(states.at(int(message.state))) + message.files).join(u' '), "result");
}

void TestSingleInstance::hostileClientsDoNoHarm()
{
    SingleInstance first(store("hostile"));
    QCOMPARE(first.start({}), Outcome::First);
    QSignalSpy files(&first, &SingleInstance::filesHandedOver);
    QSignalSpy activations(&first, &SingleInstance::activationAsked);
    QFile lock(store("hostile/instance.lock"));
    QVERIFY(lock.open(QIODevice::ReadOnly));
    const QString address = QString::fromUtf8(lock.readAll());
    std::vector<std::unique_ptr<QLocalSocket>> clients;
    const auto connectClient = [&]() -> QLocalSocket& {
        clients.push_back(std::make_unique<QLocalSocket>());
        clients.back()->setSocketOptions(QLocalSocket::AbstractNamespaceOption);
        clients.back()->connectToServer(address);
        return *clients.back();
    };
    QLocalSocket& flood = connectClient();
    QTRY_COMPARE(flood.state(), QLocalSocket::ConnectedState);
    flood.write(QByteArray(10'000'000, 'x'));
    QTRY_COMPARE(flood.state(), QLocalSocket::UnconnectedState);
    for (int i = 0; i < 40; ++i)
        connectClient();  // and says nothing
    QTRY_VERIFY(clients.back()->state() == QLocalSocket::UnconnectedState);
    clients.clear();
    Start second(store("hostile"));
    QTRY_COMPARE(activations.size(), 1);
    QLocalSocket& slow = connectClient();
    QTRY_COMPARE(slow.state(), QLocalSocket::ConnectedState);
    for (const char byte : encodeInstanceMessage({u"/a"_s})) {
        slow.write(&byte, 1);
        slow.flush();
        QCoreApplication::processEvents();
    }
    QTRY_COMPARE(files.size(), 1);
    QCOMPARE(activations.size(), 1);
}

MORVAK_TEST(TestSingleInstance);
#include "test_single_instance.moc"
