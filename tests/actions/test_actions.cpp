#include "actions/Clients.h"
#include "actions/OpenShootFile.h"
#include "actions/SetActions.h"
#include "actions/SetTexts.h"
#include "support/TestMain.h"
#include "support/WatcherFixture.h"
#include "text/ImportText.h"

#include <QFile>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace morvak;
using morvak::test::WatcherFixture;

class TestActions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void editKeepsWhatHappenedMeanwhile();
    void setsAndShootsThatAreGoneTagNoMorePhotos();
    void tooLargeFileIsNotRead();
    void textsOfSetsAndShoots();
    void clientsAndTheirBrands();
};

void TestActions::editKeepsWhatHappenedMeanwhile()
{
    WatcherFixture desk;
    desk.store.createShoot(u"Ibiza"_s, {}, {});
    takeScan(desk.store, *desk.watcher, u"SET:1\nBRAND:Noord"_s);
    takeScan(desk.store, *desk.watcher, u"SET:2\nBRAND:Velora"_s);
    const auto set = [&desk](int at) { return desk.store.shoots().constFirst().sets[at]; };
    const SetData before = set(0);
    QSignalSpy banner(&*desk.watcher, &FolderWatcher::justActivatedHeadlineChanged);
    desk.store.incrementTagCount(before.id);
    const SetFields fields{.setNumber = u"2B"_s,
                           .brand = u"Orva"_s,
                           .model = {},
                           .location = {},
                           .email = {},
                           .items = {SetItem(), *SetItem::parse(u"Jas/navy"_s)}};
    const int sounds = desk.sounds;
    QVERIFY(saveSetEdit(desk.store, *desk.watcher, before.id, fields));
    const SetData saved = set(0);
    QCOMPARE(saved.headline(), u"Set 2B — Orva"_s);
    QCOMPARE(saved.description(), u"Jas navy"_s);
    QCOMPARE(saved.id, before.id);
    QCOMPARE(saved.taggedCount, 1);
    QCOMPARE(desk.watcher->currentSet()->headline(), saved.headline());
    QVERIFY(banner.isEmpty());
    QCOMPARE(desk.sounds, sounds);

    // Another set's edit leaves what photos get alone; a set that is gone is not brought back.
    QVERIFY(saveSetEdit(desk.store, *desk.watcher, set(1).id, fields));
    QCOMPARE(desk.watcher->currentSet()->id, before.id);
    desk.store.deleteSet(before.id);
    QVERIFY(!saveSetEdit(desk.store, *desk.watcher, before.id, fields));
    QCOMPARE(desk.store.shoots().constFirst().sets.size(), 1);
}

void TestActions::setsAndShootsThatAreGoneTagNoMorePhotos()
{
    WatcherFixture desk;
    QVERIFY(!takeScan(desk.store, *desk.watcher, u"geen set"_s));
    QVERIFY(takeScan(desk.store, *desk.watcher, u"SET:1"_s));  // without a shoot it is nowhere stored
    QVERIFY(!addNewSet(desk.store, {}));
    desk.store.createShoot(u"Ibiza"_s, {}, {});
    const QUuid other = *addNewSet(desk.store, {});
    deleteSet(desk.store, *desk.watcher, other);
    QCOMPARE(desk.watcher->currentSet()->setNumber, u"1"_s);

    QVERIFY(takeScan(desk.store, *desk.watcher, u"SET:2"_s));
    deleteSet(desk.store, *desk.watcher, desk.watcher->currentSet()->id);
    QVERIFY(!desk.watcher->currentSet());
    QVERIFY(takeScan(desk.store, *desk.watcher, u"SET:3"_s));
    deleteShoot(desk.store, *desk.watcher, *desk.store.activeShootId());
    QVERIFY(!desk.watcher->currentSet());
}

void TestActions::tooLargeFileIsNotRead()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"large.morvak"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(mostImportedBytes));
    QVERIFY(readShootFile(file.fileName()));
    QVERIFY(file.resize(mostImportedBytes + 1));
    QVERIFY(!readShootFile(file.fileName()));
}

void TestActions::textsOfSetsAndShoots()
{
    QCOMPARE(SetTexts::watchFolder(std::nullopt), u"Geen watch folder"_s);
    Shoot shoot;
    shoot.name = u"A/%1 \"B\""_s;
    QCOMPARE(SetTexts::watchFolder(shoot), u"Geen watch folder ingesteld"_s);
    shoot.watchFolderPath = u"/foto/%1"_s;
    QCOMPARE(SetTexts::watchFolder(shoot), u"Actief: /foto/%1"_s);
    SetData set;
    set.taggedCount = 34;
    shoot.sets = {set, set};
    QCOMPARE(SetTexts::statistics(shoot), u"2 sets · 68 foto's getagd"_s);
    QCOMPARE(SetTexts::count(set), u"34 foto's"_s);
    QCOMPARE(SetTexts::deleteTitle(shoot), u"Shoot \"A/%1 \"B\"\" verwijderen?"_s);
    QCOMPARE(SetTexts::deleteMessage(shoot),
             u"Dit verwijdert de shoot en alle 2 sets erin. Al getagde foto's blijven ongewijzigd, "
             "alleen de gegevens in Morvak verdwijnen."_s);
    QCOMPARE(SetTexts::backlogResult({}), u"Geen nog-ongetagde bestanden gevonden."_s);
    QCOMPARE(SetTexts::backlogResult({7, 4, 3}),
             u"7 gevonden, 4 getagd, 3 overgeslagen (geen actieve set op dat tijdstip — zie het log)."_s);
}

void TestActions::clientsAndTheirBrands()
{
    Shoot velora;
    velora.client = u"velora"_s;
    Shoot noord;
    noord.client = u"Noord"_s;
    QCOMPARE(knownClients({velora, noord, velora, Shoot()}), QStringList({u"Noord"_s, u"velora"_s}));
    QCOMPARE(knownClients({velora}, {u"Atelier"_s, u"velora"_s}), QStringList({u"Atelier"_s, u"velora"_s}));
    const QStringList brands{u"Noord"_s, u"VELORA"_s, u"Velora"_s};
    QCOMPARE(brandOfClient(brands, u"velora"_s), u"VELORA"_s);
    QCOMPARE(brandOfClient(brands, {}), QString());
}

MORVAK_TEST(TestActions);
#include "test_actions.moc"
