#include "store/ShootManager.h"
#include "store/StoreFile.h"
#include "support/CapturedOutput.h"
#include "support/TestMain.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace morvak;
using namespace morvak::test;
using namespace Qt::StringLiterals;

/// Every test starts with the shoot "Lookbook" in Amsterdam, whose set 1 is active and was tagged twice.
class TestShootExchange : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void importedRowsComeFirstInReverse();
    void importsThatAddNothing_data();
    void importsThatAddNothing();
    void unknownIdsGiveNothing();
    void openedShootIsANewOne();
    void whatIsNoShootFile();

private:
    [[nodiscard]] QByteArray inMemory() const { return *encodeShoots(m_manager->shoots()); }
    [[nodiscard]] QByteArray saved() const
    {
        QFile file(m_path);
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }
    [[nodiscard]] const Shoot& shoot() const { return m_manager->shoots().last(); }

    std::optional<QTemporaryDir> m_folder;
    QString m_path;
    std::unique_ptr<ShootManager> m_manager;
    std::unique_ptr<QSignalSpy> m_changes;
};

void TestShootExchange::init()
{
    m_changes.reset();
    m_folder.emplace();
    m_path = m_folder->filePath(u"shoots.json"_s);
    m_manager = std::make_unique<ShootManager>(m_path, nullptr, [] { return Timestamp{1000.5}; });
    m_manager->createShoot(u"Lookbook"_s, u"Amsterdam"_s, u"Klant"_s);
    m_manager->setWatchFolder(u"/p"_s, shoot().id);
    const SetData set = *m_manager->handleScanInput(u"SET:1\nBRAND:Noord\nITEM:Chino/navy\nEMAIL:a;b"_s);
    m_manager->incrementTagCount(set.id);
    m_manager->incrementTagCount(set.id);
    m_changes = std::make_unique<QSignalSpy>(m_manager.get(), &ShootManager::shootsChanged);
}

void TestShootExchange::importedRowsComeFirstInReverse()
{
    const SetData present = shoot().sets.first();
    QCOMPARE(m_manager->importCSV(u"set;merk\n7;A\n8;\n9;B"_s, shoot().id), 2);
    QCOMPARE(m_changes->size(), 1);
    QCOMPARE(shoot().sets.size(), 3);
    QCOMPARE(shoot().sets[0].headline(), u"Set 9 — B"_s);
    QCOMPARE(shoot().sets[1].headline(), u"Set 7 — A"_s);
    QCOMPARE(shoot().sets[2].id, present.id);
    QVERIFY(m_manager->exportCSV(shoot().id).endsWith(u"\n1;Noord;Chino/navy;;;\"a;b\";2"));
    QCOMPARE(m_manager->activeSetId(), present.id);
    QCOMPARE(saved(), inMemory());
}

void TestShootExchange::importsThatAddNothing_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("line");
    QTest::newRow("rows without sets") << u"set;merk\n7;"_s << QString();
    QTest::newRow("header alone") << u"set;merk\n"_s << u"⚠️ De CSV is niet geïmporteerd: "_s;
    QTest::newRow("six bytes a character, too many for the store file to be read back")
        << u"merk\n"_s + QString(23'000'000, QChar(1)) << u"⚠️ Niets is geïmporteerd: "_s;
}

void TestShootExchange::importsThatAddNothing()
{
    QFETCH(const QString, text);
    QFETCH(const QString, line);
    const QByteArray before = inMemory();
    CapturedOutput output;
    QCOMPARE(m_manager->importCSV(text, shoot().id), 0);
    const QString told = output.take();
    QVERIFY2(told.startsWith(line) && told.isEmpty() == line.isEmpty(), qPrintable(told));
    QVERIFY(m_changes->isEmpty());
    QCOMPARE(inMemory(), before);
    QCOMPARE(saved() == before, line.isEmpty());  // it has the photos counted since the last save
}

void TestShootExchange::unknownIdsGiveNothing()
{
    const QUuid unknown = QUuid::createUuid();
    const QByteArray before = saved();
    QVERIFY(m_manager->exportCSV(unknown).isEmpty() && !m_manager->exportJSON(unknown));
    QCOMPARE(m_manager->importCSV(u"merk\nA"_s, unknown), 0);
    QCOMPARE(saved(), before);
}

void TestShootExchange::openedShootIsANewOne()
{
    const QByteArray file = *m_manager->exportJSON(shoot().id);
    QSignalSpy activated(m_manager.get(), &ShootManager::activeShootIdChanged);
    const std::optional<QUuid> activeSet = m_manager->activeSetId();
    QVERIFY(m_manager->importShoot(file));
    const Shoot opened = *m_manager->importShoot(file);
    QCOMPARE(m_changes->size(), 2);
    QCOMPARE(activated.size(), 2);
    QCOMPARE(m_manager->shoots().size(), 3);
    QCOMPARE(m_manager->shoots().first().id, opened.id);
    QCOMPARE(m_manager->activeShootId(), opened.id);
    QVERIFY(m_manager->activeSetId() == activeSet && !m_manager->activeSet());
    QCOMPARE(saved(), inMemory());

    QCOMPARE(opened.name + u'/' + opened.location + u'/' + opened.client, u"Lookbook/Amsterdam/Klant"_s);
    QCOMPARE(opened.date.seconds, 1000.5);
    QVERIFY(!opened.watchFolderPath && opened.activationLog.isEmpty());
    const SetData& original = shoot().sets.first();
    const SetData& set = opened.sets.first();
    QCOMPARE(set.toQRText(), original.toQRText());
    QCOMPARE(set.items.first().id, original.items.first().id);
    QCOMPARE(set.timestamp.seconds, std::floor(original.timestamp.seconds));
    QCOMPARE(set.taggedCount, 2);
    QSet<QUuid> ids;
    for (const Shoot& each : m_manager->shoots())
        ids << each.id << each.sets.first().id;
    QCOMPARE(ids.size(), 6);
}

void TestShootExchange::whatIsNoShootFile()
{
    SetData set = shoot().sets.first();
    set.timestamp.seconds = 1e15;
    m_manager->updateSet(set.id, set);
    const QByteArray before = saved();
    m_changes->clear();
    CapturedOutput output;
    QVERIFY(!m_manager->exportJSON(shoot().id));
    QVERIFY(!m_manager->importShoot(before));
    const QStringList told = output.take().split(u'\n');
    QVERIFY(told[0].startsWith(u"⚠️ Shoot Lookbook past niet in een bestand"));
    QCOMPARE(told[1], u"⚠️ Het shootbestand is niet geopend: is geen object"_s);
    QCOMPARE(saved(), before);
    QVERIFY(m_changes->isEmpty() && m_manager->shoots().size() == 1);
}

MORVAK_TEST(TestShootExchange);
#include "test_shoot_exchange.moc"
