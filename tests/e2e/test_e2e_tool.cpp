#include "MorvakRun.h"
#include "sampleshoot/SampleShoot.h"
#include "support/Files.h"
#include "support/TestMain.h"

#include <csignal>

using namespace morvak;
using namespace Qt::StringLiterals;
using morvak::test::contentOf;
using morvak::test::MorvakRun;

namespace {

/// Closes a photo that was opened for writing, without a change.
void touch(const QString& path)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
}

void makeTool(const QString& path, const QByteArray& script, bool executable = true)
{
    QFile::remove(path);  // one that runs cannot be written
    test::writeFile(path, "#!/bin/sh\n" + script + '\n');
    QFile::setPermissions(path, QFile::ReadOwner | (executable ? QFile::ExeOwner : QFile::Permission()));
}

}  // namespace

/// exiftool itself is at fault; the program says so, goes on, and recovers.
class TestE2eTool : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void uselessToolIsToldAndGottenOver_data();
    void uselessToolIsToldAndGottenOver();
    void hangingToolHoldsNothingElseUp();
};

void TestE2eTool::uselessToolIsToldAndGottenOver_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<bool>("executable");
    QTest::addColumn<QString>("diagnostic");
    QTest::newRow("may not be run") << QByteArray("exit 0") << false << u"❌ Failed to start ExifTool: "_s;
    QTest::newRow("ends at once") << QByteArray("exit 0") << true << u"❌ ExifTool "_s;
    QTest::newRow("fails at everything")
        << QByteArray(
               "while read -r line; do case $line in -execute*) "
               "echo \"Error: out of memory\"; echo \"{ready${line#-execute}}\";; esac; done")
        << true << u"❌ Failed to tag: a.jpg — Error: out of memory"_s;
}

void TestE2eTool::uselessToolIsToldAndGottenOver()
{
    QFETCH(const QByteArray, script);
    QFETCH(const bool, executable);
    QFETCH(const QString, diagnostic);
    MorvakRun run;
    const QString tool = run.elsewhere(u"tool"_s);
    makeTool(tool, script, executable);
    run.setEnvironment(u"MORVAK_EXIFTOOL"_s, tool);
    run.start();
    run.scan(samples::sampleSets().at(0));
    run.drop(u"a.jpg"_s, test::smallPhoto());
    QTRY_COMPARE_WITH_TIMEOUT(run.count(u"❌ Tagging mislukt: a.jpg"_s), 1, 30'000);
    QVERIFY2(run.count(diagnostic) >= 1, qPrintable(run.lines().join(u'\n')));
    QCOMPARE(contentOf(run.path(u"a.jpg"_s)), test::smallPhoto());

    makeTool(tool, "exec exiftool \"$@\"");
    run.signalTools(SIGKILL);  // one of the useless may still run
    touch(run.path(u"a.jpg"_s));
    QTRY_COMPARE_WITH_TIMEOUT(run.count(u"✅ Getagd: a.jpg"_s), 1, 30'000);
    QVERIFY(run.quit(SIGTERM) >= 0);
    QCOMPARE(run.exifTools(), QList<qint64>());
}

/// The tools never answer. Sets are still changed and saved, and the end does not wait for the tools.
void TestE2eTool::hangingToolHoldsNothingElseUp()
{
    MorvakRun run;
    const QString tool = run.elsewhere(u"tool"_s);
    makeTool(tool, "trap '' INT; while :; do sleep 1 & wait; done");
    run.setEnvironment(u"MORVAK_EXIFTOOL"_s, tool);
    run.start();
    run.scan(samples::sampleSets().at(0));
    run.drop(u"a.jpg"_s, test::smallPhoto());
    QTRY_COMPARE_WITH_TIMEOUT(run.count(u"📁 Bestand stabiel: a.jpg"_s), 1, 20'000);
    const QByteArray before = contentOf(run.storeFile());
    run.scan(samples::sampleSets().at(1));
    QTRY_VERIFY(contentOf(run.storeFile()) != before);
    QVERIFY(run.quit(SIGTERM) >= 0);
    QCOMPARE(run.exifTools(), QList<qint64>());
    QCOMPARE(contentOf(run.path(u"a.jpg"_s)), test::smallPhoto());
}

MORVAK_TEST(TestE2eTool);
#include "test_e2e_tool.moc"
