#include "engine/Engine.h"
#include "metadata/ExifToolService.h"
#include "support/FullDisk.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace morvak;

namespace {

/// A user's profile with two shoots, each with a folder, and what the engine is made with.
class Profile {
public:
    Profile()
    {
        ShootManager store(storeFile());
        for (const QString& name : {u"Lente"_s, u"Herfst"_s}) {
            QDir(m_root.path()).mkdir(name);
            store.createShoot(name, {}, {});
            store.setWatchFolder(folder(name), *store.activeShootId());
        }
    }

    [[nodiscard]] QString storeFile() const { return m_root.filePath(u"shoots.json"_s); }
    [[nodiscard]] QString folder(const QString& shoot) const { return m_root.filePath(shoot); }
    [[nodiscard]] EngineParts parts()
    {
        return {.exifTool = m_exifTool,
                .storeFile = storeFile(),
                .catalogFile = m_root.filePath(u"catalog.json"_s)};
    }
    [[nodiscard]] QStringList storedShoots() const
    {
        ShootManager store(storeFile());
        store.load();
        QStringList names;
        for (const Shoot& shoot : store.shoots())
            names.append(shoot.name);
        return names;
    }

private:
    QTemporaryDir m_root;
    ExifToolService m_exifTool;
};

}  // namespace

class TestEngine : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void handedOverFileComesAfterTheShootsThatAreThere();
    void watcherFollowsTheActiveShootOnly();
    void storesThatCannotBeSavedAreReportedOnce();
    void quitSavesWhatIsNotSavedYet();
};

void TestEngine::handedOverFileComesAfterTheShootsThatAreThere()
{
    Profile profile;
    Engine morvak(profile.parts());
    ShootManager other(profile.folder(u"other.json"_s));
    other.createShoot(u"Van buiten"_s, {}, {});
    QFile file(profile.folder(u"buiten.morvak"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(*other.exportJSON(*other.activeShootId()));
    file.close();
    morvak.openShootFiles({file.fileName()});
    QCOMPARE(profile.storedShoots(), QStringList({u"Van buiten"_s, u"Herfst"_s, u"Lente"_s}));
    morvak.quit();
}

void TestEngine::watcherFollowsTheActiveShootOnly()
{
    Profile profile;
    Engine morvak(profile.parts());
    morvak.runUnseen();
    QTRY_VERIFY(morvak.watcher().isWatching());
    morvak.watcher().stopWatching();
    morvak.shoots().handleScanInput(u"SET:1"_s);  // announces the active shoot again
    QVERIFY(!morvak.watcher().isWatching());
    morvak.shoots().setActiveShootId(morvak.shoots().shoots()[1].id);
    QCOMPARE(morvak.watcher().watchPath(), profile.folder(u"Lente"_s));
    QTRY_VERIFY(morvak.watcher().isWatching());
    morvak.quit();
}

void TestEngine::storesThatCannotBeSavedAreReportedOnce()
{
    Profile profile;
    Engine morvak(profile.parts());
    morvak.runUnseen();
    const auto lines = [&morvak](const QString& text) {
        return std::ranges::count_if(morvak.watcher().log(), [&text](const LogEntry& entry) {
            return entry.message.contains(text) && entry.message.contains(u".json"_s);
        });
    };
    for (int failures = 1; failures <= 2; ++failures) {
        {
            const test::FullDisk disk(10);
            for (const auto& name : {u"A"_s, u"B"_s, u"C"_s}) {
                morvak.shoots().createShoot(name, {}, {});
                morvak.catalog().addClient(name + QString::number(failures));
            }
            QTRY_COMPARE(lines(u"is niet bewaard"_s), 2 * failures);
        }
        morvak.shoots().save();
        morvak.catalog().save();
        QTRY_COMPARE(lines(u"is weer bewaard"_s), 2 * failures);
        QCOMPARE(lines(u"is niet bewaard"_s), 2 * failures);
    }
    morvak.quit();
}

void TestEngine::quitSavesWhatIsNotSavedYet()
{
    Profile profile;
    Engine morvak(profile.parts());
    morvak.runUnseen();
    {
        const test::FullDisk disk(10);
        morvak.shoots().createShoot(u"Zomer"_s, {}, {});
        morvak.catalog().addClient(u"Kestrum"_s);
    }
    morvak.quit();
    QCOMPARE(profile.storedShoots(), QStringList({u"Zomer"_s, u"Herfst"_s, u"Lente"_s}));
    ProductCatalog stored(profile.parts().catalogFile);
    stored.load();
    QCOMPARE(stored.clients(), QStringList{u"Kestrum"_s});
}

MORVAK_TEST(TestEngine);
#include "test_engine.moc"
