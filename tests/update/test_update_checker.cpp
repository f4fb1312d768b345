#include "LocalServer.h"
#include "support/CapturedOutput.h"
#include "support/TestMain.h"
#include "update/UpdateChecker.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSignalSpy>
#include <QSslKey>
#include <QSslServer>
#include <QTemporaryDir>

using namespace morvak;
using namespace morvak::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

const QByteArray three = R"({"version":"3.0","download_url":"https://a.example/three, four"})";

QByteArray response(const QByteArray& status, const QByteArray& body, const QByteArray& headers = {})
{
    return "HTTP/1.1 " + status + "\r\n" + headers + "Content-Length: " + QByteArray::number(body.size()) +
           "\r\n\r\n" + body;
}

QByteArray redirect(const QByteArray& to)
{
    return response("302 Found", "{}", "Location: " + to + "\r\n");
}

/// A certificate for this machine that nobody has signed, and its key; made by the real tool.
QSslConfiguration ownCertificate(const QString& folder)
{
    QProcess tool;
    tool.setWorkingDirectory(folder);
    tool.start(u"openssl"_s,
               u"req -x509 -newkey rsa:2048 -nodes -batch -subj /CN=127.0.0.1 "
               "-addext subjectAltName=IP:127.0.0.1 -keyout key -out certificate"_s.split(u' '));
    tool.waitForFinished();
    QFile key(folder + u"/key"_s);
    key.open(QFile::ReadOnly);
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setPrivateKey(QSslKey(&key, QSsl::Rsa));
    configuration.setLocalCertificateChain(QSslCertificate::fromPath(folder + u"/certificate"_s));
    return configuration;
}

const QDateTime now = QDateTime::fromString(u"2026-01-15T12:00:00Z"_s, Qt::ISODate);

}  // namespace

/// The version that runs is 1.4, and 2.0 is known from an earlier check.
class TestUpdateChecker : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void restoring();
    void asksOnceInSixHours_data();
    void asksOnceInSixHours();
    void answers_data();
    void answers();
    void neverAnswered();
    void goingAwayInTheMiddle();
    void asksAgainAndAgain();
    void encrypted_data();
    void encrypted();

private:
    [[nodiscard]] UpdateMemory memory() const { return {m_config.preferencesPath, m_config.keyPrefix}; }
    void preferences(const QByteArray& version, const QByteArray& url, const QByteArray& check = "x") const
    {
        QFile file(m_config.preferencesPath);
        QVERIFY(file.open(QFile::WriteOnly));
        file.write("[General]\nu.lastKnownVersion=" + version + "\nu.lastKnownDownloadURL=" + url +
                   "\nu.lastCheckDate=" + check + '\n');
    }
    void check(const QUrl& endpoint)
    {
        m_config.endpoint = endpoint;
        m_checker = std::make_unique<UpdateChecker>(m_config);
        m_checker->checkForUpdate();
    }
    [[nodiscard]] QString known() const { return m_checker->availableVersion().value_or(u"none"_s); }

    std::optional<QTemporaryDir> m_folder;
    std::unique_ptr<QTcpServer> m_server;
    std::unique_ptr<LocalServer> m_web;
    UpdateConfig m_config;
    std::unique_ptr<UpdateChecker> m_checker;
};

void TestUpdateChecker::init()
{
    m_checker.reset();
    m_folder.emplace();
    m_server = std::make_unique<QTcpServer>();
    m_web = std::make_unique<LocalServer>(*m_server, u"http"_s);
    m_web->answer("/three", response("200 OK", three));
    m_config = {};
    m_config.keyPrefix = u"u"_s;
    m_config.currentVersion = u"1.4"_s;
    m_config.preferencesPath = m_folder->filePath(u"Morvak.conf"_s);
    m_config.clock = [] { return now; };
    preferences("2.0", "https://a.example/two");
}

void TestUpdateChecker::restoring()
{
    const QByteArray web = "https://a.example/two";
    const QByteArray comma = "\"http://a.example/x,y\"";
    const QList<QByteArrayList> cases{
        {"1.4.1", comma, "1.4.1"}, {"1.4.0", web, "none"},       {"1.3", web, "none"},     {"", web, "none"},
        {"2.0", "", "none"},       {"2.0", "file:///x", "none"}, {"2.0, 3.0", web, "none"}};
    for (const QByteArrayList& stored : cases) {
        preferences(stored[0], stored[1]);
        m_checker = std::make_unique<UpdateChecker>(m_config);
        QCOMPARE(known().toUtf8(), stored[2]);
        QCOMPARE(m_checker->downloadURL().has_value(), known() != u"none");
    }
}

void TestUpdateChecker::asksOnceInSixHours_data()
{
    QTest::addColumn<bool>("asks");
    for (const char* check : {"2026-01-15T07:00:00Z", "2026-01-15T06:00:00.001Z", "2099-01-01T00:00:00Z"})
        QTest::newRow(check) << false;
    for (const char* check : {"2026-01-15T06:00:00Z", "2026-01-15T07:00:00+01:00", "", "gisteren",
                              "2026-02-30T00:00:00Z", "2026-01-15T07:00:00Z, x"})
        QTest::newRow(check) << true;
}

void TestUpdateChecker::asksOnceInSixHours()
{
    QFETCH(const bool, asks);
    preferences("2.0", "https://a.example/two", QTest::currentDataTag());
    check(m_web->url(u"/three"_s));
    m_checker->checkForUpdate();  // while it is going on
    QTRY_COMPARE(known(), asks ? u"3.0"_s : u"2.0"_s);
    m_checker->checkForUpdate();  // right after it
    m_config.preferencesPath += u"2"_s;
    const std::unique_ptr<UpdateChecker> first = std::move(m_checker);
    check(m_web->url(u"/three"_s));  // whatever the first one has asked for has come before
    QTRY_COMPARE(known(), u"3.0"_s);
    QCOMPARE(m_web->requests(), asks ? 2 : 1);
}

void TestUpdateChecker::answers_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("available");
    QTest::addColumn<QString>("line");  // when nothing has changed
    const auto row = [](const char* name, const QByteArray& answer, const char* available = "2.0",
                        const char* line = "⚠️ Niet nagegaan") {
        QTest::newRow(name) << answer << available << line;
    };
    const QByteArray challenge = "WWW-Authenticate: Basic realm=\"x\"\r\n";
    const QByteArray packed = qCompress(three.leftJustified(40 << 20)).sliced(4);
    for (const char* status : {"200 OK", "400 Bad", "403 No", "404 Lost", "418 Pot", "500 Broken", "599 Odd"})
        row(status, response(status, three), "3.0");
    row("asking for a password", response("401 Who", three, challenge), "3.0");
    row("without a length", "HTTP/1.1 200 OK\r\n\r\n" + three, "3.0");
    row("redirected", redirect("/three"), "3.0");
    row("64 KiB", response("200 OK", three.leftJustified(64 << 10)), "3.0");
    row("not newer", response("200 OK", R"({"version":"1.4.0","download_url":"https://a"})"), "none");
    row("over 64 KiB", response("200 OK", three.leftJustified((64 << 10) + 1)), "2.0", "te groot");
    row("far over, unannounced", "HTTP/1.1 200 OK\r\n\r\n" + three.leftJustified(1 << 20), "2.0", "te groot");
    row("far over, unpacked", response("200 OK", packed, "Content-Encoding: deflate\r\n"));
    row("garbage", response("200 OK", "Onderhoud"), "2.0", "geen JSON");
    row("empty", response("200 OK", ""), "2.0", "geen JSON");
    row("cut off", response("200 OK", three + "\n").chopped(1));
    row("cut off with an error", response("500 Broken", three + "\n").chopped(1));
    row("closed at once", "");
    row("no HTTP", "220 smtp.example\r\n\r\n");
    row("redirected in circles", redirect("/"));
    row("redirected to a file", redirect("file:///etc/passwd"));
}

void TestUpdateChecker::answers()
{
    QFETCH(const QByteArray, answer);
    QFETCH(const QString, available);
    QFETCH(const QString, line);
    const bool changes = available != u"2.0";
    m_web->answer("/", answer);
    CapturedOutput output;
    check(m_web->url(u"/"_s));
    QCOMPARE(known(), u"2.0"_s);
    const QSignalSpy announced(m_checker.get(), &UpdateChecker::availableVersionChanged);
    QTRY_COMPARE(memory().lastCheck(), now);
    QCOMPARE(known(), available);
    QCOMPARE(announced.size(), changes ? 1 : 0);
    const QString lines = output.take();
    QVERIFY2(changes ? lines.isEmpty() : lines.contains(line) && lines.count(u'\n') == 1, qPrintable(lines));
    const UpdateChecker restarted(m_config);
    QCOMPARE(restarted.availableVersion(), m_checker->availableVersion());
    QCOMPARE(restarted.downloadURL(), m_checker->downloadURL());
    QCOMPARE(memory().lastKnown().has_value(), available != u"none");
}

void TestUpdateChecker::neverAnswered()
{
    for (const UpdateLimits& limits :
         {UpdateLimits{.silence = 50ms, .whole = 1h}, UpdateLimits{.silence = 1h, .whole = 50ms}}) {
        init();
        CapturedOutput output;
        m_config.limits = limits;
        check(m_web->url(u"/never answered"_s));
        QTRY_COMPARE(memory().lastCheck(), now);
        QCOMPARE(known(), u"2.0"_s);
        QVERIFY(output.take().contains(u"niet op tijd"));
    }
}

void TestUpdateChecker::goingAwayInTheMiddle()
{
    check(m_web->url(u"/never answered"_s));
    QTRY_COMPARE(m_web->requests(), 1);
    m_checker.reset();
    check(m_web->url(u"/never answered"_s));
    QTRY_COMPARE(m_web->requests(), 2);
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    QCoreApplication::exec();
    m_checker->checkForUpdate();  // the last one is not going on any more
    QTRY_COMPARE(m_web->requests(), 3);
    QVERIFY(!memory().lastCheck());  // none was completed
}

void TestUpdateChecker::asksAgainAndAgain()
{
    m_config.minCheckInterval = 1ms;
    m_config.clock = [hour = now]() mutable { return hour = hour.addSecs(3600); };
    check(m_web->url(u"/three"_s));
    m_checker->start();
    QTRY_VERIFY(m_web->requests() > 2);
}

void TestUpdateChecker::encrypted_data()
{
    QTest::addColumn<bool>("trusted");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("available");
    QTest::newRow("unknown certificate") << false << u"/three"_s << u"2.0"_s;
    QTest::newRow("trusted certificate") << true << u"/three"_s << u"3.0"_s;
    QTest::newRow("redirect out of the encryption") << true << u"/away"_s << u"2.0"_s;
}

void TestUpdateChecker::encrypted()
{
    QFETCH(const bool, trusted);
    QFETCH(const QString, path);
    QSslServer server;
    server.setSslConfiguration(ownCertificate(m_folder->path()));
    LocalServer secured(server, u"https"_s);
    secured.answer("/three", response("200 OK", three));
    secured.answer("/away", redirect(m_web->url(u"/three"_s).toEncoded()));
    const QSslConfiguration before = QSslConfiguration::defaultConfiguration();
    QSslConfiguration trusting = before;
    if (trusted)
        trusting.addCaCertificate(server.sslConfiguration().localCertificate());
    QSslConfiguration::setDefaultConfiguration(trusting);
    const CapturedOutput output;
    check(secured.url(path));
    QTRY_COMPARE(memory().lastCheck(), now);
    QSslConfiguration::setDefaultConfiguration(before);
    QTEST(known(), "available");
    QCOMPARE(secured.requests(), trusted ? 1 : 0);
    QCOMPARE(m_web->requests(), 0);
}

MORVAK_TEST(TestUpdateChecker);
#include "test_update_checker.moc"
