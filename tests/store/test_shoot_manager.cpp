#include "store/ShootManager.h"
#include "store/StoreFile.h"
#include "support/CapturedOutput.h"
#include "support/FullDisk.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace morvak;
using namespace morvak::test;
using namespace Qt::StringLiterals;

namespace {

SetData makeSet(const QString& number, const QString& brand = u"Noord"_s)
{
    SetData set;
    set.setNumber = number;
    set.brand = brand;
    return set;
}

QStringList numbers(const Shoot& shoot)
{
    QStringList list;
    for (const SetData& set : shoot.sets)
        list.append(set.setNumber);
    return list;
}

}  // namespace

/// Every test starts with two shoots, "B" (active; sets b2, b1) and "A" (sets a2, a1), all of them saved.
class TestShootManager : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void startsEmptyAndMakesItsFile();
    void loadsWhatWasSaved();
    void newestComesFirst();
    void activatingFollowsTheSetToItsShoot();
    void activatingAnUnknownIdOnlyRemembersIt();
    void activatingAgainLogsAgain();
    void activeSetBelongsToTheActiveShoot();
    void scanning_data();
    void scanning();
    void scanMakesANewSet();
    void scanWithoutAShootKeepsNothing_data();
    void scanWithoutAShootKeepsNothing();
    void deletingTheActiveSet();
    void deletingShoots();
    void updatingReplacesTheWholeRecord();
    void unknownIdsChangeNothing();
    void countingReachesTheFileWithTheNextSave();
    void defaultNumberCountsSets();
    void watchFolderIsKeptAndForgotten();
    void operationsTakeTheirArgumentsFromTheList();
    void everyChangeIsAnnouncedWhenItIsDone();
    void unreadableFileIsKept();
    void failedSaveIsTriedAgainByItself();
    void restIsSavedInTheQuit();

private:
    [[nodiscard]] QList<Shoot> saved() const
    {
        QFile file(m_path);
        JsonFault fault;
        return file.open(QFile::ReadOnly) ? decodeShoots(file.readAll(), fault).value_or(QList<Shoot>())
                                          : QList<Shoot>();
    }
    [[nodiscard]] const Shoot& shootA() const { return m_manager->shoots().last(); }
    [[nodiscard]] const Shoot& shootB() const { return m_manager->shoots().first(); }

    std::optional<QTemporaryDir> m_folder;
    QString m_path;
    double m_clock = 0;
    std::unique_ptr<ShootManager> m_manager;
};

void TestShootManager::init()
{
    m_manager.reset();
    m_folder.emplace();
    m_path = m_folder->filePath(u"Morvak/shoots.json"_s);
    m_clock = 1000;
    m_manager = std::make_unique<ShootManager>(m_path, nullptr, [this] { return Timestamp{++m_clock}; });
    for (const QString& name : {u"a"_s, u"b"_s}) {
        m_manager->createShoot(name.toUpper(), u"Amsterdam"_s, u"Klant"_s);
        for (const QString& number : {u"1"_s, u"2"_s})
            m_manager->addSet(*m_manager->activeShootId(), makeSet(name + number));
    }
}

void TestShootManager::startsEmptyAndMakesItsFile()
{
    CapturedOutput output;
    const QString path = m_folder->filePath(u"new/folders/shoots.json"_s);
    ShootManager manager(path);
    manager.load();
    QVERIFY(manager.shoots().isEmpty() && !manager.activeShoot() && !manager.activeSet());
    QVERIFY(!QFile::exists(path));
    manager.createShoot(u"A"_s, {}, {});
    QVERIFY(QFile::exists(path));
    QCOMPARE(output.take(), QString());
}

void TestShootManager::loadsWhatWasSaved()
{
    m_manager->activateSet(shootA().sets.first().id);
    ShootManager other(m_path);
    other.load();
    QCOMPARE(encodeShoots(other.shoots()), encodeShoots(m_manager->shoots()));
    QCOMPARE(other.activeShootId(), shootB().id);  // the first, whichever was active
    QVERIFY(!other.activeSetId());
    QCOMPARE(other.activeShoot()->date.seconds, 1002.0);
}

void TestShootManager::newestComesFirst()
{
    QCOMPARE(shootB().name, u"B"_s);
    QCOMPARE(shootA().name, u"A"_s);
    QCOMPARE(m_manager->activeShootId(), shootB().id);
    QCOMPARE(numbers(shootB()), (QStringList{u"b2"_s, u"b1"_s}));
    QCOMPARE(shootB().location, u"Amsterdam"_s);
    QCOMPARE(shootB().client, u"Klant"_s);
}

void TestShootManager::activatingFollowsTheSetToItsShoot()
{
    const SetData set = shootA().sets.last();
    m_manager->activateSet(set.id);
    QCOMPARE(m_manager->activeShootId(), shootA().id);
    QCOMPARE(m_manager->activeSet()->setNumber, u"a1"_s);
    QVERIFY(shootB().activationLog.isEmpty());
    const QList<SetActivation> log = saved().last().activationLog;
    QCOMPARE(log.size(), 1);
    QCOMPARE(log.first().setId, set.id);
    QCOMPARE(log.first().activatedAt.seconds, 1003.0);
}

void TestShootManager::activatingAnUnknownIdOnlyRemembersIt()
{
    QVERIFY(QFile::remove(m_path));
    const QUuid unknown = QUuid::createUuid();
    m_manager->activateSet(unknown);
    QCOMPARE(m_manager->activeSetId(), unknown);
    QVERIFY(!m_manager->activeSet());
    QCOMPARE(m_manager->activeShootId(), shootB().id);
    QVERIFY(!QFile::exists(m_path));
}

void TestShootManager::activatingAgainLogsAgain()
{
    const QUuid first = shootB().sets.first().id;
    const QUuid second = shootB().sets.last().id;
    for (const QUuid& id : {first, first, second})
        m_manager->activateSet(id);
    const QList<SetActivation> log = shootB().activationLog;
    QCOMPARE(log.size(), 3);
    QCOMPARE(log[1].setId, first);
    QCOMPARE(log[2].setId, second);
    QVERIFY(log[0].activatedAt.seconds < log[1].activatedAt.seconds);
}

void TestShootManager::activeSetBelongsToTheActiveShoot()
{
    const QUuid set = shootB().sets.first().id;
    m_manager->activateSet(set);
    m_manager->setActiveShootId(shootA().id);
    QCOMPARE(m_manager->activeSetId(), set);
    QVERIFY(!m_manager->activeSet());
    m_manager->setActiveShootId(std::nullopt);
    QVERIFY(!m_manager->activeShoot());
    m_manager->setActiveShootId(shootB().id);
    QCOMPARE(m_manager->activeSet()->id, set);
}

void TestShootManager::scanning_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("known");  // the number of the stored set that is found; empty for a new one
    QTest::newRow("same number and brand") << "SET:b1\nBRAND:Noord"
                                           << "b1";
    QTest::newRow("other details are thrown away") << "brand: Noord\nset: b1\nMODEL:Eva\nITEM:x"
                                                   << "b1";
    QTest::newRow("brand in another case") << "SET:b1\nBRAND:noord"
                                           << "";
    QTest::newRow("number in another case") << "SET:B1\nBRAND:Noord"
                                            << "";
    QTest::newRow("no brand") << "SET:b1"
                              << "";
    QTest::newRow("a set of the other shoot") << "SET:a1\nBRAND:Noord"
                                              << "";
}

void TestShootManager::scanning()
{
    QFETCH(const QString, text);
    QFETCH(const QString, known);
    const QUuid id = shootB().sets.last().id;
    const std::optional<SetData> set = m_manager->handleScanInput(text);
    QVERIFY(set);
    QCOMPARE(shootB().sets.size(), known.isEmpty() ? 3 : 2);
    QCOMPARE(set->id == id, !known.isEmpty());
    QCOMPARE(m_manager->activeSet()->id, set->id);
    QCOMPARE(set->model, QString());
    const Shoot onDisk = saved().first();
    QCOMPARE(onDisk.activationLog.last().setId, set->id);
    QCOMPARE(onDisk.sets.size(), shootB().sets.size());
}

void TestShootManager::scanMakesANewSet()
{
    const std::optional<SetData> set = m_manager->handleScanInput(u"SET:9\nITEM:Chino/navy\nEMAIL:a@b"_s);
    const SetData stored = saved().first().sets.first();
    QCOMPARE(stored.id, set->id);
    QCOMPARE(stored.toQRText(), u"SET:9\nITEM:Chino/navy\nEMAIL:a@b"_s);
    QCOMPARE(m_manager->handleScanInput(u"SET:9"_s)->id, set->id);
    QVERIFY(!m_manager->handleScanInput(u"MODEL:Anna"_s));
    QCOMPARE(shootB().sets.size(), 3);
    QCOMPARE(shootB().activationLog.size(), 2);
}

void TestShootManager::scanWithoutAShootKeepsNothing_data()
{
    QTest::addColumn<bool>("unknownShoot");
    QTest::newRow("no shoot is active") << false;
    QTest::newRow("the active id has no shoot") << true;
}

void TestShootManager::scanWithoutAShootKeepsNothing()
{
    QFETCH(const bool, unknownShoot);
    const auto before = encodeShoots(m_manager->shoots());
    m_manager->setActiveShootId(unknownShoot ? std::optional(QUuid::createUuid()) : std::nullopt);
    const std::optional<SetData> set = m_manager->handleScanInput(u"SET:9"_s);
    QCOMPARE(set->setNumber, u"9"_s);
    QCOMPARE(encodeShoots(m_manager->shoots()), before);
    QCOMPARE(m_manager->activeSetId(), unknownShoot ? std::optional(set->id) : std::nullopt);
    QVERIFY(!m_manager->activeSet());
}

void TestShootManager::deletingTheActiveSet()
{
    const QUuid id = shootB().sets.first().id;
    m_manager->addSet(shootA().id, shootB().sets.first());  // the same record in a second shoot
    m_manager->activateSet(id);
    m_manager->deleteSet(shootB().sets.last().id);
    QCOMPARE(m_manager->activeSetId(), id);
    m_manager->deleteSet(id);
    QVERIFY(!m_manager->activeSetId());
    QVERIFY(saved().first().sets.isEmpty());
    QCOMPARE(numbers(saved().last()), (QStringList{u"a2"_s, u"a1"_s}));
    QCOMPARE(saved().first().activationLog.size(), 1);
}

void TestShootManager::deletingShoots()
{
    const QUuid set = shootB().sets.first().id;
    const QUuid a = shootA().id;
    m_manager->activateSet(set);
    m_manager->deleteShoot(shootB().id);
    QCOMPARE(m_manager->activeShootId(), a);
    QCOMPARE(m_manager->activeSetId(), set);
    QVERIFY(!m_manager->activeSet());
    QCOMPARE(saved().size(), 1);
    m_manager->setActiveShootId(std::nullopt);
    m_manager->deleteShoot(a);
    QVERIFY(!m_manager->activeShootId());
    QVERIFY(QFile::exists(m_path) && saved().isEmpty());
}

void TestShootManager::updatingReplacesTheWholeRecord()
{
    const QUuid old = shootA().sets.first().id;
    SetData updated = makeSet(u"7"_s, u"Velora"_s);
    updated.taggedCount = 40;
    m_manager->updateSet(old, updated);
    const SetData stored = saved().last().sets.first();
    QCOMPARE(stored.id, updated.id);
    QCOMPARE(stored.brand, u"Velora"_s);
    QCOMPARE(stored.taggedCount, 40);
    QCOMPARE(numbers(saved().last()), (QStringList{u"7"_s, u"a1"_s}));
    QCOMPARE(m_manager->activeShootId(), shootB().id);
}

void TestShootManager::unknownIdsChangeNothing()
{
    const auto before = encodeShoots(m_manager->shoots());
    const QUuid unknown = QUuid::createUuid();
    QVERIFY(QFile::remove(m_path));
    QSignalSpy changed(m_manager.get(), &ShootManager::shootsChanged);
    m_manager->setWatchFolder(u"/p"_s, unknown);
    m_manager->addSet(unknown, makeSet(u"1"_s));
    m_manager->updateSet(unknown, makeSet(u"1"_s));
    m_manager->incrementTagCount(unknown);
    QVERIFY(!QFile::exists(m_path));
    QVERIFY(changed.isEmpty());
    m_manager->deleteSet(unknown);  // saves all the same
    QVERIFY(QFile::remove(m_path));
    m_manager->deleteShoot(unknown);
    QVERIFY(QFile::exists(m_path));
    QCOMPARE(encodeShoots(m_manager->shoots()), before);
}

void TestShootManager::countingReachesTheFileWithTheNextSave()
{
    const QUuid id = shootA().sets.last().id;
    QSignalSpy changed(m_manager.get(), &ShootManager::shootsChanged);
    m_manager->incrementTagCount(id);
    m_manager->incrementTagCount(id);
    QCOMPARE(changed.size(), 2);
    QCOMPARE(shootA().sets.last().taggedCount, 2);
    QCOMPARE(saved().last().sets.last().taggedCount, 0);
    m_manager->activateSet(shootB().sets.first().id);
    QCOMPARE(saved().last().sets.last().taggedCount, 2);
    SetData full = makeSet(u"full"_s);
    full.taggedCount = std::numeric_limits<qint64>::max();
    m_manager->addSet(shootB().id, full);
    m_manager->incrementTagCount(full.id);
    QCOMPARE(shootB().sets.first().taggedCount, full.taggedCount);
}

void TestShootManager::defaultNumberCountsSets()
{
    QCOMPARE(m_manager->defaultSetNumber(), u"3"_s);
    m_manager->addSet(shootB().id, makeSet(u"3"_s));
    m_manager->deleteSet(shootB().sets.last().id);
    QCOMPARE(m_manager->defaultSetNumber(), u"3"_s);
    m_manager->setActiveShootId(std::nullopt);
    QCOMPARE(m_manager->defaultSetNumber(), u"1"_s);
}

void TestShootManager::watchFolderIsKeptAndForgotten()
{
    const QString path = u"/foto's/caf"_s + QChar(0xDCE9);  // a byte that is no UTF-8
    m_manager->setWatchFolder(path, shootA().id);
    QCOMPARE(saved().last().watchFolderPath, path);
    QVERIFY(!saved().first().watchFolderPath);
    m_manager->setWatchFolder(std::nullopt, shootA().id);
    QVERIFY(!saved().last().watchFolderPath);
}

void TestShootManager::operationsTakeTheirArgumentsFromTheList()
{
    // The arguments are references into what the operation changes.
    m_manager->activateSet(shootB().sets.first().id);
    m_manager->addSet(shootB().id, shootB().sets.last());
    QCOMPARE(numbers(shootB()), (QStringList{u"b1"_s, u"b2"_s, u"b1"_s}));
    m_manager->updateSet(shootB().sets.first().id, shootB().sets.at(1));
    QCOMPARE(numbers(shootB()), (QStringList{u"b2"_s, u"b2"_s, u"b1"_s}));
    m_manager->deleteSet(shootB().sets.first().id);
    QVERIFY(!m_manager->activeSetId());
    QCOMPARE(numbers(shootB()), QStringList{u"b1"_s});
    m_manager->deleteShoot(shootB().id);
    QCOMPARE(m_manager->activeShootId(), shootB().id);
}

void TestShootManager::everyChangeIsAnnouncedWhenItIsDone()
{
    const QUuid set = shootA().sets.first().id;
    QStringList seen;
    const auto note = [&](const char* signal) {
        return [&, signal] {
            const QString active = m_manager->activeSet() ? m_manager->activeSet()->setNumber : u"-"_s;
            seen.append(QString::fromLatin1(signal) + u' ' + active + u' ' +
                        QString::number(saved().last().activationLog.size()));
        };
    };
    connect(m_manager.get(), &ShootManager::shootsChanged, this, note("shoots"));
    connect(m_manager.get(), &ShootManager::activeShootIdChanged, this, note("shoot"));
    connect(m_manager.get(), &ShootManager::activeSetIdChanged, this, note("set"));
    m_manager->activateSet(set);
    QCOMPARE(seen, (QStringList{u"shoots a2 1"_s, u"shoot a2 1"_s, u"set a2 1"_s}));
    seen.clear();
    m_manager->load();
    QCOMPARE(seen, (QStringList{u"shoots - 1"_s, u"shoot - 1"_s}));
    seen.clear();
    m_manager->deleteSet(set);
    QCOMPARE(seen, (QStringList{u"shoots - 1"_s, u"set - 1"_s}));
}

void TestShootManager::unreadableFileIsKept()
{
    QFile file(m_path);
    QVERIFY(file.open(QFile::ReadOnly));
    const QByteArray damaged = file.readAll().replace(R"("brand":"Noord",)", "");
    file.close();
    QVERIFY(file.open(QFile::WriteOnly) && file.write(damaged) > 0);
    file.close();

    CapturedOutput output;
    ShootManager manager(m_path);
    manager.load();
    QVERIFY(manager.shoots().isEmpty() && !manager.activeShootId());
    manager.createShoot(u"New"_s, {}, {});
    manager.createShoot(u"Newer"_s, {}, {});
    QCOMPARE(saved().size(), 2);
    const QStringList names = QDir(m_folder->filePath(u"Morvak"_s)).entryList(QDir::Files);
    QCOMPARE(names.size(), 2);
    QFile kept(m_folder->filePath(u"Morvak/"_s + names.last()));
    QVERIFY(kept.open(QFile::ReadOnly));
    QCOMPARE(kept.readAll(), damaged);
    QVERIFY(output.take().contains(u"is niet gelezen: [0].sets[0].brand ontbreekt"));
}

void TestShootManager::failedSaveIsTriedAgainByItself()
{
    const CapturedOutput output;
    ShootManager manager(m_path, nullptr, &Timestamp::now, std::chrono::milliseconds(5));
    manager.load();
    const auto before = encodeShoots(saved());
    {
        const FullDisk disk(500);
        manager.activateSet(shootB().sets.first().id);
        QVERIFY(!manager.saver().problem().isEmpty());
    }
    QCOMPARE(manager.activeSet()->setNumber, u"b2"_s);
    QCOMPARE(encodeShoots(saved()), before);
    QTRY_VERIFY(manager.saver().problem().isEmpty());
    QCOMPARE(encodeShoots(saved()), encodeShoots(manager.shoots()));
}

void TestShootManager::restIsSavedInTheQuit()
{
    const CapturedOutput output;
    const auto before = QFileInfo(m_path).lastModified();
    m_manager->saveRest();  // there is none
    QCOMPARE(QFileInfo(m_path).lastModified(), before);
    const qint64 count = shootB().sets.first().taggedCount;
    m_manager->incrementTagCount(shootB().sets.first().id);
    QCOMPARE(saved().first().sets.first().taggedCount, count);
    m_manager->saveRest();
    QCOMPARE(saved().first().sets.first().taggedCount, count + 1);
    {
        const FullDisk disk(500);
        m_manager->createShoot(u"New"_s, {}, {});
    }
    m_manager->saveRest();
    QCOMPARE(encodeShoots(saved()), encodeShoots(m_manager->shoots()));
}

MORVAK_TEST(TestShootManager);
#include "test_shoot_manager.moc"
