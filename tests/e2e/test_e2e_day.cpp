#include "app/Desktop.h"
#include "engine/Engine.h"
#include "metadata/ExifToolService.h"
#include "rename/RawRenameTask.h"
#include "sampleshoot/CardPhoto.h"
#include "sampleshoot/PhotoEncoders.h"
#include "sampleshoot/SampleShoot.h"
#include "support/Files.h"
#include "support/PrivateUpdates.h"
#include "support/ScannerKeys.h"
#include "support/TestMain.h"
#include "ui/base/theme/Theme.h"
#include "update/UpdateChecker.h"

#include <QDir>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <algorithm>

using namespace morvak;
using namespace Qt::StringLiterals;
using morvak::test::ScannerKeys;
using morvak::test::writeFile;

namespace {

/// Morvak with its window, a folder that the camera writes to, and the photographer's hands.
class Station {
public:
    Station()
    {
        QDir(m_root.path()).mkdir(u"capture"_s);
        m_engine.start();
        m_desktop.bringToFront();
        m_keys.emplace(window());
    }
    ~Station() { m_engine.quit(); }

    [[nodiscard]] ShootManager& shoots() { return m_engine.shoots(); }
    [[nodiscard]] FolderWatcher& watcher() { return m_engine.watcher(); }
    [[nodiscard]] MainView& window() { return m_desktop.shell().mainView(); }
    [[nodiscard]] QString path(const QString& name) const { return m_root.filePath(name); }
    [[nodiscard]] QString capture() const { return path(u"capture"_s); }

    /// The shoot as the office has prepared it: a file with its sets.
    void openPrepared(const QList<SetData>& sets)
    {
        ShootManager office(path(u"office.json"_s));
        office.createShoot(u"Ibiza Zomer 2026"_s, u"Ibiza"_s, u"Noord"_s);
        for (const SetData& set : sets)
            office.addSet(*office.activeShootId(), set);
        writeFile(path(u"Ibiza.morvak"_s), *office.exportJSON(*office.activeShootId()));
        m_desktop.openShootFiles({path(u"Ibiza.morvak"_s)});
    }

    void scan(const SetData& card)
    {
        m_keys->pause();
        m_keys->type(card.toQRText() + u'\n');
    }

    [[nodiscard]] bool hasLogged(const QString& words)
    {
        const QList<LogEntry>& log = watcher().log();
        return std::any_of(log.begin(), log.end(),
                           [&words](const LogEntry& entry) { return entry.message.contains(words); });
    }

    void shoot(const QString& name, QByteArray (*encode)(const samples::PhotoOptions&), const QImage& picture,
               int minute) const
    {
        samples::PhotoOptions photo;
        photo.upright = picture;
        photo.taken = QDateTime(QDate(2026, 6, 1), QTime(10, minute));
        writeFile(capture() + u'/' + name, encode(photo));
    }

    [[nodiscard]] RawRenameSummary handOver()
    {
        RawRenameTask task(RawRenameService(
            [this](const QString& in, const QSet<QString>& extensions, const ReadingControl& control) {
                return m_exifTool.readSubjectsAndDates(in, extensions, control);
            }));
        const QSignalSpy finished(&task, &RawRenameTask::finished);
        task.start(capture(), path(u"klant"_s));
        [&] { QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, 20'000); }();
        return finished.isEmpty() ? RawRenameSummary() : finished[0][0].value<RawRenameSummary>();
    }

    /// "name headline" of each photo in a folder, as another program reads them.
    [[nodiscard]] QStringList headlines(const QString& folder) const
    {
        QProcess tool;
        tool.setWorkingDirectory(folder);
        tool.start(u"exiftool"_s,
                   {u"-q"_s, u"-f"_s, u"-p"_s, u"$filename: $XMP-photoshop:Headline"_s, u"."_s});
        tool.waitForFinished();
        QStringList lines = QString::fromUtf8(tool.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
        lines.sort();
        return lines;
    }

private:
    QTemporaryDir m_root;
    ExifToolService m_exifTool;
    UpdateChecker m_updates{test::privateUpdates(path(u"preferences"_s))};
    Theme m_theme;
    Engine m_engine{{.exifTool = m_exifTool,
                     .storeFile = path(u"shoots.json"_s),
                     .catalogFile = path(u"catalog.json"_s)}};
    Desktop m_desktop{{.engine = m_engine, .updates = m_updates, .theme = m_theme, .version = u"1.0.0"_s}};
    std::optional<ScannerKeys> m_keys;
};

}  // namespace

class TestE2eDay : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void fromThePreparedShootToTheClientsFolder();
};

void TestE2eDay::fromThePreparedShootToTheClientsFolder()
{
    const QList<SetData> sets = samples::sampleSets();
    SetData extra;
    extra.setNumber = u"14"_s;
    extra.brand = u"Velora"_s;
    extra.items = {{.name = u"Jas"_s, .color = u"navy"_s}};
    const QImage outfit = samples::plainPhoto(QSize(1620, 1080)).upright;
    Station desk;
    const auto active = [&desk] { return desk.watcher().currentSet().value_or(SetData()).headline(); };
    const auto tagged = [&desk] { return desk.watcher().taggedCount(); };

    // A photo before the first set stays as it is.
    desk.openPrepared(sets);
    desk.watcher().startWatching(desk.capture());
    desk.shoot(u"01.jpg"_s, samples::jpegPhoto, outfit, 1);
    QTRY_VERIFY(desk.hasLogged(u"01.jpg overgeslagen"_s));

    // A card is scanned while another tab is shown.
    desk.window().setSelectedTab(1);
    desk.scan(sets[0]);
    QTRY_COMPARE(active(), sets[0].headline());
    desk.shoot(u"02.NEF"_s, samples::nefPhoto, outfit, 2);
    desk.shoot(u"03.jpg"_s, samples::jpegPhoto, outfit, 3);
    QTRY_COMPARE_WITH_TIMEOUT(tagged(), 2, 20'000);

    // What comes in while nobody watches has to wait for the repair.
    desk.watcher().stopWatching();
    desk.shoot(u"04.cr2"_s, samples::cr2Photo, outfit, 4);
    desk.watcher().startWatching(desk.capture());

    // The next card is photographed, and one is scanned that nobody has prepared.
    desk.shoot(u"05.jpg"_s, samples::jpegPhoto, samples::cardPhoto(sets[1], QSize(1620, 1080), 3), 5);
    QTRY_COMPARE_WITH_TIMEOUT(active(), sets[1].headline(), 20'000);
    desk.shoot(u"06.dng"_s, samples::dngPhoto, outfit, 6);
    QTRY_COMPARE_WITH_TIMEOUT(tagged(), 4, 20'000);
    desk.scan(extra);
    QTRY_COMPARE(active(), extra.headline());
    desk.shoot(u"07.arw"_s, samples::arwPhoto, outfit, 7);
    QTRY_COMPARE_WITH_TIMEOUT(tagged(), 5, 20'000);

    std::optional<BacklogScanSummary> repaired;
    desk.watcher().processExistingFiles(desk.capture(), *desk.shoots().activeShoot(),
                                        [&](const BacklogScanSummary& summary) { repaired = summary; });
    QTRY_VERIFY_WITH_TIMEOUT(repaired, 20'000);
    QCOMPARE(repaired->tagged, 1);
    QCOMPARE(repaired->unresolved, 1);
    const QString first = sets[0].headline();
    const QString second = sets[1].headline();
    QCOMPARE(desk.headlines(desk.capture()),
             QStringList({u"01.jpg: -"_s, u"02.NEF: "_s + first, u"03.jpg: "_s + first, u"04.cr2: "_s + first,
                          u"05.jpg: "_s + second, u"06.dng: "_s + second, u"07.arw: "_s + extra.headline()}));

    QCOMPARE(desk.handOver().renamedCount(), 6);
    const QStringList copies = desk.headlines(desk.path(u"klant"_s));
    QCOMPARE(copies.size(), 6);
    QVERIFY2(copies.contains(u"Velora, Jas, navy_01.arw: "_s + extra.headline()),
             qPrintable(copies.join(u'\n')));
    QVERIFY2(!copies.filter(u"_03.cr2: "_s + first).isEmpty(), qPrintable(copies.join(u'\n')));

    // All of it is on disk.
    desk.shoots().activateSet(desk.shoots().activeShoot()->sets[0].id);
    ShootManager tomorrow(desk.path(u"shoots.json"_s));
    tomorrow.load();
    QList<qint64> counts;
    for (const SetData& set : tomorrow.activeShoot().value_or(Shoot()).sets)
        counts.append(set.taggedCount);
    QCOMPARE(counts, QList<qint64>({1, 2, 3}));
}

MORVAK_TEST(TestE2eDay);
#include "test_e2e_day.moc"
