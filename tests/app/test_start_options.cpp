#include "app/StartOptions.h"
#include "platform/FileName.h"
#include "support/TestMain.h"

using namespace morvak;
using namespace Qt::StringLiterals;

namespace {

const StartContext context{u"/srv/shoots"_s, u"1.2.3"_s, u"/data/shoots.json"_s, u"/config/Morvak.conf"_s};

/// "scan exit dark /a /b" or "2: text".
QString inWords(const std::variant<StartOptions, StartAnswer>& result)
{
    if (const auto* const answer = std::get_if<StartAnswer>(&result))
        return QString::number(answer->exitCode) + u": "_s + answer->text.section(u'\n', 0, 0);
    const StartOptions& options = std::get<StartOptions>(result);
    QStringList words;
    if (options.scanStdin)
        words.append(u"scan"_s);
    if (options.exitAfterStartup)
        words.append(u"exit"_s);
    if (options.theme)
        words.append(QStringList{u"system"_s, u"light"_s, u"dark"_s}.at(int(*options.theme)));
    return (words + options.files).join(u' ');
}

}  // namespace

class TestStartOptions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void understands_data();
    void understands();
    void everyByteOfANameArrives();
};

void TestStartOptions::understands_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* what, const QStringList& arguments, const QString& expected) {
        QTest::newRow(what) << arguments << expected;
    };
    row("nothing", {}, {});
    row("options in any order", {u"--scan-stdin"_s, u"--theme"_s, u"dark"_s, u"--exit-after-startup"_s},
        u"scan exit dark"_s);
    row("theme with =", {u"--theme=system"_s}, u"system"_s);
    row("files", {u"/a.morvak"_s, u"b.morvak"_s, u"../c.morvak"_s, u"./-d.morvak"_s},
        u"/a.morvak /srv/shoots/b.morvak /srv/c.morvak /srv/shoots/-d.morvak"_s);
    row("file between options", {u"b"_s, u"--theme"_s, u"light"_s}, u"light /srv/shoots/b"_s);
    row("after --", {u"--"_s, u"--help"_s}, u"/srv/shoots/--help"_s);
    row("URLs", {u"file:///x%20y/%E2%82%AC.morvak"_s, u"FILE://localhost/z"_s}, u"/x y/€.morvak /z"_s);
    row("URL of another machine", {u"file://server/z"_s},
        u"2: morvak: geen bestand van deze computer: file://server/z"_s);
    row("empty name", {QString()}, u"2: morvak: geen bestand van deze computer: "_s);
    row("help before everything", {u"x"_s, u"--nonsense"_s, u"-h"_s},
        u"0: Gebruik: morvak [opties] [bestand.morvak ...]"_s);
    row("version", {u"--version"_s}, u"0: Morvak 1.2.3"_s);
    row("unknown option", {u"--nonsense"_s}, u"2: morvak: onbekende optie: nonsense"_s);
    row("unknown theme", {u"--theme"_s, u"pink"_s}, u"2: morvak: --theme kent light, dark en system"_s);
    row("theme without a name", {u"--theme"_s},
        u"2: morvak: een optie heeft een waarde te veel of te weinig"_s);
    row("flag with a value", {u"--scan-stdin=no"_s},
        u"2: morvak: een optie heeft een waarde te veel of te weinig"_s);
}

void TestStartOptions::understands()
{
    QFETCH(QStringList, arguments);
    QTEST(inWords(parseStartOptions(arguments, context)), "expected");
}

void TestStartOptions::everyByteOfANameArrives()
{
    const char* const argv[] = {"morvak", "/caf\xE9.morvak", "file:///caf%E9.morvak"};
    const auto result = parseStartOptions(commandLineArguments(3, &argv[0]), context);
    for (const QString& file : std::get<StartOptions>(result).files)
        QCOMPARE(encodeFileName(file), QByteArray("/caf\xE9.morvak"));
}

MORVAK_TEST(TestStartOptions);
#include "test_start_options.moc"
