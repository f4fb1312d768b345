#include "support/TestMain.h"
#include "ui/shoots/SetsActions.h"
#include "ui/shoots/ShootExport.h"

using namespace Qt::StringLiterals;
using namespace morvak;

Q_DECLARE_METATYPE(morvak::SetsAction)
Q_DECLARE_METATYPE(morvak::SetsFacts)

class TestShootActions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reasonsAgainst_data();
    void reasonsAgainst();
    void textsAndNames();
};

void TestShootActions::reasonsAgainst_data()
{
    using enum SetsAction;
    const SetsFacts none;
    const SetsFacts shoot{
        .hasShoot = true, .hasFolder = false, .folderMissing = false, .isProcessing = false};
    const SetsFacts folder{
        .hasShoot = true, .hasFolder = true, .folderMissing = false, .isProcessing = false};
    const SetsFacts missing{
        .hasShoot = true, .hasFolder = true, .folderMissing = true, .isProcessing = false};
    const SetsFacts busy{.hasShoot = true, .hasFolder = true, .folderMissing = false, .isProcessing = true};
    QTest::addColumn<SetsAction>("action");
    QTest::addColumn<SetsFacts>("facts");
    QTest::addColumn<QString>("reason");
    for (const SetsAction action : {newShoot, clients, qrGenerator, bulkExport, catalog, openShootFile})
        QTest::addRow("always, %d", int(action)) << action << none << QString();
    for (const SetsAction action :
         {deleteShoot, importCsv, exportCsv, exportJson, newSet, saveShootFile, processExisting})
        QTest::addRow("needs a shoot, %d", int(action)) << action << none << u"eerst een shoot"_s;
    for (const SetsAction action : {deleteShoot, importCsv, exportCsv, exportJson, newSet, saveShootFile})
        QTest::addRow("has a shoot, %d", int(action)) << action << shoot << QString();
    QTest::newRow("needs a folder") << processExisting << shoot << u"nog geen watch folder"_s;
    QTest::newRow("has a folder") << processExisting << folder << QString();
    QTest::newRow("the folder is away") << processExisting << missing << u"niet te vinden"_s;
    QTest::newRow("runs already") << processExisting << busy << u"worden al verwerkt"_s;
}

void TestShootActions::reasonsAgainst()
{
    QFETCH(SetsAction, action);
    QFETCH(SetsFacts, facts);
    QFETCH(QString, reason);
    const QString found = SetsActionTexts::reasonAgainst(action, facts);
    QCOMPARE(found.isEmpty(), reason.isEmpty());
    QVERIFY2(found.contains(reason), qPrintable(found));
    if (!found.isEmpty())
        QCOMPARE(SetsActionTexts::toolTip(action, facts), found);
}

void TestShootActions::textsAndNames()
{
    QCOMPARE(SetsActionTexts::toolTip(SetsAction::openShootFile, {}),
             u"Open een .morvak-bestand, bijv. een shoot voorbereid in Morvak Prep (Ctrl+O)"_s);
    Shoot shoot;
    shoot.name = u"A/%1 \"B\""_s;
    QCOMPARE(proposedFileName(ShootExport::csv, shoot), u"A/%1 \"B\".csv"_s);
    QCOMPARE(proposedFileName(ShootExport::json, std::nullopt), u"sets.json"_s);
    QCOMPARE(proposedFileName(ShootExport::shootFile, shoot), u"A/%1 \"B\".morvak"_s);
}

MORVAK_TEST(TestShootActions);
#include "test_shoot_actions.moc"
