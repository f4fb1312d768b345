#include "support/TestMain.h"
#include "watch/KnownPhotos.h"

using namespace morvak;

class TestKnownPhotos : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tellsWhatNeedsARun_data();
    void tellsWhatNeedsARun();
};

void TestKnownPhotos::tellsWhatNeedsARun_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<quint64>("size");
    QTest::addColumn<qint64>("modified");
    QTest::addColumn<bool>("isNew");
    const qint64 second = 1'000'000'000;
    const auto row = [](const char* what, const char* name, quint64 size, qint64 modified, bool isNew) {
        QTest::newRow(what) << QString::fromUtf8(name) << size << modified << isNew;
    };
    row("never seen", "x", 100, 50 * second, true);
    row("tagged", "tagged", 100, 50 * second, false);
    row("tagged, touched", "tagged", 100, 90 * second, false);
    row("tagged, its name reused", "tagged", 101, 50 * second, true);
    row("dealt with", "skipped", 100, 50 * second, false);
    row("dealt with, its time rounded down by a FAT drive", "skipped", 100, 48 * second, false);
    row("dealt with, written since", "skipped", 100, 53 * second, true);
    row("dealt with, grown since", "skipped", 101, 50 * second, true);
    row("dealt with in a state unseen", "unseen", 100, 50 * second, false);
    row("skipped, then tagged", "both", 100, 50 * second, false);
    row("skipped, then tagged, then changed", "both", 102, 50 * second, true);
}

void TestKnownPhotos::tellsWhatNeedsARun()
{
    QFETCH(QString, name);
    QFETCH(quint64, size);
    QFETCH(qint64, modified);
    const FileState seen{100, 50'000'000'000};
    KnownPhotos known;
    known.noteTagged(QStringLiteral("tagged"), seen);
    known.noteDealtWith(QStringLiteral("skipped"), seen);
    known.noteDealtWith(QStringLiteral("unseen"), std::nullopt);
    known.noteDealtWith(QStringLiteral("both"), FileState{101, 50'000'000'000});
    known.noteTagged(QStringLiteral("both"), seen);
    QTEST(known.isNew(name, {size, modified}), "isNew");
}

MORVAK_TEST(TestKnownPhotos);
#include "test_known_photos.moc"
