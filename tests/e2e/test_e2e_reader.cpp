#include "MorvakRun.h"
#include "sampleshoot/SampleShoot.h"
#include "support/Files.h"
#include "support/TestMain.h"

#include <csignal>

using namespace morvak;
using namespace Qt::StringLiterals;
using morvak::test::MorvakRun;
using morvak::test::setOfTags;

/// exiftool tags photos and does not answer questions about them.
class TestE2eReader : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void silentReaderHoldsUpNoPhoto();
};

/// Questions begin with one of these options, tagging requests with -m, which does no harm when it is common
/// to all of them. Waiting for each question would take two minutes.
void TestE2eReader::silentReaderHoldsUpNoPhoto()
{
    const QList<SetData> sets = samples::sampleSets();
    MorvakRun run;
    const QString tool = run.elsewhere(u"tool"_s);
    test::writeFile(tool,
                    "#!/bin/sh\n"
                    "[ \"$1\" = -stay_open ] && read -r first || exec exiftool \"$@\"\n"
                    "case $first in -m) exec exiftool \"$@\" -common_args -m;; esac\n"
                    "exec sleep 600\n");
    QVERIFY(QFile::setPermissions(tool, QFile::ReadOwner | QFile::ExeOwner));
    run.setEnvironment(u"MORVAK_EXIFTOOL"_s, tool);
    run.start();
    run.scan(sets.at(0));
    for (int i = 1; i <= 8; ++i)
        run.drop(u"%1.jpg"_s.arg(i), test::smallPhoto());
    QTRY_COMPARE_WITH_TIMEOUT(run.count(u"✅ Getagd: "_s), 8, 60'000);
    QCOMPARE(run.count(u"⚠️ exiftool antwoordt niet op vragen over foto's"_s), 1);
    for (const QJsonObject& tags : run.readBack()) {
        const SetData* const set = setOfTags(tags, sets);
        QVERIFY(set && set->id == sets.at(0).id);
    }
    QCOMPARE(run.leftovers(), QStringList());
    QVERIFY(run.quit(SIGTERM) >= 0);
    QCOMPARE(run.exifTools(), QList<qint64>());
}

MORVAK_TEST(TestE2eReader);
#include "test_e2e_reader.moc"
