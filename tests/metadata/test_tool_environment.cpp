#include "metadata/ToolEnvironment.h"
#include "metadata/ToolLookup.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using Entries = QList<QByteArray>;

class TestToolEnvironment : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void givesTheToolASafeHome_data();
    void givesTheToolASafeHome();
    void looksForTheToolInOrder();
};

void TestToolEnvironment::givesTheToolASafeHome_data()
{
    QTest::addColumn<Entries>("base");
    QTest::addColumn<Entries>("expected");
    const QByteArray library = "PERL5LIB=/opt/tool/lib";
    const QByteArray safe = "EXIFTOOL_HOME=/dev/null";
    QTest::newRow("absolute home") << Entries{"HOME=/home/a", "X=\xff"}
                                   << Entries{"HOME=/home/a", "X=\xff", library};
    QTest::newRow("library replaced") << Entries{"PERL5LIB=/x", "HOME=/h"} << Entries{"HOME=/h", library};
    QTest::newRow("no home at all") << Entries{} << Entries{safe, library};
    QTest::newRow("empty") << Entries{"HOME="} << Entries{"HOME=", safe, library};
    QTest::newRow("zero is none to Perl") << Entries{"HOME=0"} << Entries{"HOME=0", safe, library};
    QTest::newRow("relative") << Entries{"HOME=."} << Entries{"HOME=.", safe, library};
    QTest::newRow("the tool's own home decides")
        << Entries{"HOME=.", "EXIFTOOL_HOME=/e"} << Entries{"HOME=.", "EXIFTOOL_HOME=/e", library};
    QTest::newRow("also when it is relative")
        << Entries{"HOME=/h", "EXIFTOOL_HOME=e"} << Entries{"HOME=/h", safe, library};
    QTest::newRow("unless Perl holds it false")
        << Entries{"HOME=/h", "EXIFTOOL_HOME=0"} << Entries{"HOME=/h", "EXIFTOOL_HOME=0", library};
}

void TestToolEnvironment::givesTheToolASafeHome()
{
    QFETCH(Entries, base);
    QTEST(morvak::toolEnvironment(base, QStringLiteral("/opt/tool/exiftool")), "expected");
}

void TestToolEnvironment::looksForTheToolInOrder()
{
    const QTemporaryDir folder;
    const auto makeFile = [&](const QString& name) {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::WriteOnly) ? file.fileName() : QString();
    };
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("exiftool_mac")));
    const QString shipped = makeFile(QStringLiteral("exiftool_mac/exiftool"));
    const QString development = makeFile(QStringLiteral("development"));
    const QString installed = morvak::findExifTool(QString());

    qputenv("MORVAK_EXIFTOOL", QFile::encodeName(development));
    QCOMPARE(morvak::findExifTool(folder.path()), shipped);
    QCOMPARE(morvak::findExifTool(QStringLiteral("/nowhere")), development);
    QCOMPARE(morvak::findExifTool(QString()), development);
    QVERIFY(QFile::remove(development));
    QCOMPARE(morvak::findExifTool(QString()), installed);
    qunsetenv("MORVAK_EXIFTOOL");
}

MORVAK_TEST(TestToolEnvironment);
#include "test_tool_environment.moc"
