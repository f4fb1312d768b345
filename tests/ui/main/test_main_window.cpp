#include "platform/TrayPresence.h"
#include "support/FullDisk.h"
#include "support/TestMain.h"
#include "support/UiFixture.h"
#include "ui/base/blocks/StatBadge.h"
#include "ui/main/HeaderState.h"
#include "ui/main/MainView.h"
#include "ui/main/MenuBarView.h"
#include "ui/main/Shell.h"
#include "ui/main/TrayRules.h"
#include "ui/watch/LogText.h"

#include <QDragEnterEvent>
#include <QFile>
#include <QLayout>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace morvak;
using morvak::test::shownTexts;
using morvak::test::UiFixture;

Q_DECLARE_METATYPE(morvak::TaggingFacts)
Q_DECLARE_METATYPE(morvak::WindowFacts)

namespace {

SetData numbered(const QString& number)
{
    SetData set;
    set.setNumber = number;
    return set;
}

template <typename Widget>
Widget& find(const QWidget& in, const QString& name)
{
    return *in.findChild<Widget*>(name);
}

}  // namespace

class TestMainWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void headerTellsWhichSetPhotosGet_data();
    void headerTellsWhichSetPhotosGet();
    void headerTellsTheLastFailure();
    void headerTellsWhatCannotBeSaved();
    void stripIsRedWhileAStoreCannotBeSaved();
    void badgesAreRightTheMomentAPhotoIsTagged();
    void tabsAreReachedByKey();
    void everyTabAtTheSmallestSize_data();
    void everyTabAtTheSmallestSize();
    void droppedShootFileIsOpened();
    void panelFollowsTheWatcherAndStopsIt();
    void panelStaysInSight_data();
    void panelStaysInSight();
    void panelCloses_data();
    void panelCloses();
    void panelOpensInsideTheScreen_data();
    void panelOpensInsideTheScreen();
    void closedWindowLeavesThePanelWhereThereIsNoTray();
    void trayThatCameLateAndWentIsMissed();
    void generatorIsOpenedByThePanel();
};

void TestMainWindow::headerTellsWhichSetPhotosGet_data()
{
    const SetData one = numbered(u"1"_s);
    const SetData two = numbered(u"2"_s);
    Shoot first;
    first.name = u"Lente"_s;
    first.sets = {one, two};
    Shoot second;
    second.name = u"Herfst %1"_s;
    SetData changed = one;
    changed.model = u"Anna"_s;
    TaggingFacts same;
    same.taggingSet = one;
    same.shoots = {first, second};
    same.activeShootId = first.id;
    same.activeSetId = one.id;
    const auto with = [&same](auto&& change) {
        TaggingFacts facts = same;
        change(facts);
        return facts;
    };

    QTest::addColumn<TaggingFacts>("facts");
    QTest::addColumn<QString>("set");
    QTest::addColumn<QString>("inDifference");
    QTest::newRow("the active set") << same << u"Set 1"_s << QString();
    QTest::newRow("no set") << with([](TaggingFacts& f) { f.taggingSet.reset(); }) << u"Geen actieve set"_s
                            << QString();
    QTest::newRow("another set is active")
        << with([&](TaggingFacts& f) { f.activeSetId = two.id; }) << u"Set 1"_s << u"niet actief"_s;
    QTest::newRow("changed since") << with([&](TaggingFacts& f) { f.taggingSet = changed; }) << u"Set 1"_s
                                   << u"voor de wijziging"_s;
    QTest::newRow("another shoot was chosen") << with([&](TaggingFacts& f) { f.activeShootId = second.id; })
                                              << u"Set 1"_s << u"andere shoot: Lente"_s;
    QTest::newRow("deleted") << with([](TaggingFacts& f) { f.taggingSet = numbered(u"9"_s); }) << u"Set 9"_s
                             << u"verwijderd"_s;
    QTest::newRow("never stored") << with([](TaggingFacts& f) { f.shoots.clear(); }) << u"Set 1"_s
                                  << u"niet bewaard"_s;
}

void TestMainWindow::headerTellsWhichSetPhotosGet()
{
    QFETCH(TaggingFacts, facts);
    QFETCH(QString, inDifference);
    const HeaderState state = HeaderText::of(
        {.tagging = taggedNow(facts), .lastFailure = {}, .shootsProblem = {}, .catalogProblem = {}});
    QTEST(state.set, "set");
    QCOMPARE(state.difference.isEmpty(), inDifference.isEmpty());
    QVERIFY2(state.difference.contains(inDifference), qPrintable(state.difference));
}

void TestMainWindow::headerTellsTheLastFailure()
{
    const QDateTime time(QDate(2026, 3, 1), QTime(14, 3, 22));
    const auto entry = [&time](const QString& text, LogType type) { return LogEntry{{}, time, text, type}; };
    const QList<LogEntry> log{entry(u"info"_s, LogType::info), entry(u"❌ a.CR3"_s, LogType::error),
                              entry(u"⚠️ b.CR3"_s, LogType::warning)};
    HeaderFacts facts;
    facts.lastFailure = newestFailure(log);
    const HeaderState state = HeaderText::of(facts);
    QCOMPARE(state.failure, u"14:03:22 ❌ a.CR3"_s);
    QCOMPARE(state.failureRole, Role::danger);
    facts.lastFailure = newestFailure(log.first(1));
    QVERIFY(HeaderText::of(facts).failure.isEmpty());
}

void TestMainWindow::headerTellsWhatCannotBeSaved()
{
    HeaderFacts facts;
    QCOMPARE(HeaderText::of(facts).unsaved, QString());
    facts.catalogProblem = u"schijf vol"_s;
    QVERIFY(HeaderText::of(facts).unsaved.startsWith(u"De productcatalogus wordt niet bewaard: schijf vol."));
    facts.shootsProblem = u"100%1 vol"_s;
    QVERIFY(HeaderText::of(facts).unsaved.startsWith(
        u"Shoots en productcatalogus worden niet bewaard: 100%1 vol."));
    facts.catalogProblem.clear();
    QVERIFY(HeaderText::of(facts).unsaved.startsWith(u"Shoots worden niet bewaard: 100%1 vol."));
}

void TestMainWindow::stripIsRedWhileAStoreCannotBeSaved()
{
    UiFixture shoot;
    MainView window(shoot.ui);
    window.show();
    const QLabel& unsaved = find<QLabel>(window, u"unsaved"_s);
    QVERIFY(!unsaved.isVisible());
    {
        const test::FullDisk disk(10);
        shoot.store.createShoot(u"Herfst"_s, {}, {});
        shoot.catalog.addClient(u"Noord"_s);
    }
    QTRY_VERIFY(unsaved.text().startsWith(u"Shoots en productcatalogus"_s));
    QVERIFY(unsaved.isVisible());
    QCOMPARE(unsaved.palette().color(QPalette::WindowText), colorOf(Role::danger, shoot.theme.scheme()));
    shoot.store.save();
    QTRY_VERIFY(unsaved.text().startsWith(u"De productcatalogus"_s));
    shoot.catalog.save();
    QTRY_VERIFY(!unsaved.isVisible());
}

void TestMainWindow::badgesAreRightTheMomentAPhotoIsTagged()
{
    UiFixture shoot;
    MainView window(shoot.ui);
    window.show();
    shoot.store.createShoot(u"Herfst"_s, {}, {});
    shoot.watcher->startWatching(shoot.folder.path());
    shoot.watcher->setCurrentSet(shoot.store.handleScanInput(u"SET:1"_s));
    QCOMPARE(find<StatBadge>(window, u"setsBadge"_s).value(), u"1"_s);
    QString atTheSignal;
    connect(&*shoot.watcher, &FolderWatcher::taggedCountChanged, &window,
            [&] { atTheSignal = find<StatBadge>(window, u"taggedBadge"_s).value(); });
    shoot.arrive(u"a.jpg"_s);
    QTRY_COMPARE(shoot.watcher->taggedCount(), 1);
    QCOMPARE(atTheSignal, u"1"_s);
    QTRY_COMPARE(find<QLabel>(window, u"taggingSet"_s).text(), u"Set 1"_s);
    QCOMPARE(find<QLabel>(window, u"watchingState"_s).accessibleName(), u"Actief"_s);
}

void TestMainWindow::tabsAreReachedByKey()
{
    UiFixture fixture;
    MainView window(fixture.ui);
    QSignalSpy firstShown(&window, &MainView::firstShown);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QCOMPARE(window.selectedTab(), 0);
    for (int tab = int(window.tabTitles().size()) - 1; tab >= 0; --tab) {
        QTest::keyClick(&window, Qt::Key(Qt::Key_1 + tab), Qt::ControlModifier);
        QCOMPARE(window.selectedTab(), tab);
    }
    window.hide();
    window.show();
    QCOMPARE(firstShown.size(), 1);
    window.resize(window.minimumSize());
    QVERIFY(window.layout()->minimumSize().width() <= 700);
    QVERIFY(window.layout()->minimumSize().height() <= 500);
}

void TestMainWindow::everyTabAtTheSmallestSize_data()
{
    QTest::addColumn<bool>("full");
    QTest::addColumn<int>("tab");
    UiFixture fixture;
    const QStringList titles = MainView(fixture.ui).tabTitles();
    for (int tab = 0; tab < titles.size(); ++tab) {
        QTest::addRow("empty, %s", qPrintable(titles[tab])) << false << tab;
        QTest::addRow("full, %s", qPrintable(titles[tab])) << true << tab;
    }
}

/// What can be used has a name for those who cannot see it, and no words are cut.
void TestMainWindow::everyTabAtTheSmallestSize()
{
    QFETCH(const bool, full);
    QFETCH(const int, tab);
    UiFixture shoot;
    if (full) {
        shoot.store.createShoot(QString(u"Ibiza Zomer "_s).repeated(8), {}, {});
        shoot.watcher->startWatching(shoot.folder.path());
        shoot.watcher->setCurrentSet(
            shoot.store.handleScanInput(u"SET:12\nBRAND:%1\nITEM:%1/%1\nMODEL:%1\nLOCATION:%1"_s.arg(
                u"Atelier Lindgren & Zonen "_s.repeated(4))));
        shoot.watcher->addLog(u"❌ Tagging mislukt: "_s + u"lange naam "_s.repeated(20), LogType::error);
        const test::FullDisk disk(10);
        shoot.store.save();
    }
    QTRY_COMPARE(shoot.watcher->log().isEmpty(), !full);
    MainView window(shoot.ui);
    window.resize(window.minimumSize());
    window.setSelectedTab(tab);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible())
            continue;
        const auto* const button = qobject_cast<const QAbstractButton*>(widget);
        const auto* const label = qobject_cast<const QLabel*>(widget);
        const QString text = button ? button->text() : label ? label->text() : QString();
        const QByteArray who = QByteArray(widget->metaObject()->className()) + ' ' +
                               widget->objectName().toUtf8() + ' ' + text.toUtf8();
        if (widget->focusPolicy() != Qt::NoFocus && widget->isEnabled())
            QVERIFY2(!text.isEmpty() || !widget->accessibleName().isEmpty(), who);
        if (button || label) {
            QVERIFY2(widget->width() >= widget->minimumSizeHint().width(), who);
            QVERIFY2(widget->height() >= widget->minimumSizeHint().height(), who);
        }
    }
}

void TestMainWindow::droppedShootFileIsOpened()
{
    UiFixture shoot;
    MainView window(shoot.ui);
    QFile file(shoot.data.filePath(u"Ibiza 100%.morvak"_s));
    QVERIFY(file.open(QFile::WriteOnly));
    file.write(
        R"({"id": "6B1F3C0E-7A57-4C55-9C0B-0D6B3A1E2F40", "name": "Ibiza", "location": "", "client": "",
                   "date": "2026-03-14T09:30:00Z", "sets": []})");
    file.close();
    QMimeData dragged;
    dragged.setUrls({QUrl::fromLocalFile(file.fileName())});
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &drop);
    QTRY_COMPARE(shoot.store.shoots().size(), 1);
    QCOMPARE(shoot.store.activeShoot()->name, u"Ibiza"_s);
}

void TestMainWindow::panelFollowsTheWatcherAndStopsIt()
{
    UiFixture shoot;
    int toolStops = 0;
    shoot.ui.stopTool = [&toolStops] { ++toolStops; };
    MenuBarView panel(shoot.ui);
    panel.openAsWindow();
    QVERIFY(shownTexts(panel).contains(u"Geen actieve set"_s));
    shoot.watcher->startWatching(shoot.folder.path());
    shoot.watcher->setCurrentSet(SetData::parse(u"SET:1\nITEM:Jas/navy\nITEM:Chino"_s));
    QTRY_COMPARE(find<QLabel>(panel, u"panelItems"_s).text(), u"Jas navy\nChino"_s);
    const QStringList expected{
        u"Morvak"_s,          u"v1.0.0"_s,      u"Actief"_s,       u"0 getagd"_s, u"Set 1"_s,
        u"Jas navy\nChino"_s, u"Open Morvak"_s, u"QR Generator"_s, u"Stop"_s,     u"Quit"_s};
    QCOMPARE(shownTexts(panel), expected);

    find<QPushButton>(panel, u"stop"_s).click();
    QVERIFY(!shoot.watcher->isWatching());
    QCOMPARE(toolStops, 1);
    QTRY_VERIFY(shownTexts(panel).contains(u"Gestopt"_s));
}

void TestMainWindow::panelStaysInSight_data()
{
    QTest::addColumn<WindowFacts>("facts");
    QTest::addColumn<PanelStep>("step");
    const auto row = [](const char* name, bool tray, bool main, bool panel, bool asWindow, PanelStep step) {
        QTest::newRow(name) << WindowFacts{tray, main, panel, asWindow} << step;
    };
    row("in the tray", true, false, false, false, PanelStep::leave);
    row("panel beside its icon", true, false, true, false, PanelStep::leave);
    row("no tray", false, false, false, false, PanelStep::showAsWindow);
    row("tray vanished under the panel", false, false, true, false, PanelStep::showAsWindow);
    row("panel stands in already", false, false, true, true, PanelStep::leave);
    row("a hidden panel that was a window", false, false, false, true, PanelStep::showAsWindow);
    row("main window without tray", false, true, false, false, PanelStep::leave);
    row("main window back", false, true, true, true, PanelStep::hide);
    row("tray back while the panel stands in", true, false, true, true, PanelStep::leave);
}

void TestMainWindow::panelStaysInSight()
{
    QFETCH(WindowFacts, facts);
    QTEST(panelStep(facts), "step");
}

void TestMainWindow::panelCloses_data()
{
    QTest::addColumn<WindowFacts>("facts");
    QTest::addColumn<bool>("isWatching");
    QTest::addColumn<PanelClose>("close");
    QTest::newRow("tray") << WindowFacts{true, false, true, true} << true << PanelClose::hide;
    QTest::newRow("main window") << WindowFacts{false, true, true, true} << true << PanelClose::hide;
    QTest::newRow("watching") << WindowFacts{false, false, true, true} << true << PanelClose::askAndQuit;
    QTest::newRow("idle") << WindowFacts{false, false, true, true} << false << PanelClose::quit;
}

void TestMainWindow::panelCloses()
{
    QFETCH(WindowFacts, facts);
    QFETCH(bool, isWatching);
    QTEST(panelClose(facts, isWatching), "close");
}

void TestMainWindow::panelOpensInsideTheScreen_data()
{
    QTest::addColumn<QRect>("icon");
    QTest::addColumn<QPoint>("place");
    QTest::newRow("panel at the top right") << QRect(1900, 0, 24, 24) << QPoint(1632, 32);
    QTest::newRow("panel at the bottom right") << QRect(1880, 1056, 24, 24) << QPoint(1632, 648);
    QTest::newRow("bottom left") << QRect(0, 1056, 24, 24) << QPoint(8, 648);
    QTest::newRow("middle of the top") << QRect(948, 0, 24, 24) << QPoint(819, 32);
}

void TestMainWindow::panelOpensInsideTheScreen()
{
    QFETCH(QRect, icon);
    const QRect available(0, 24, 1920, 1032);
    const QRect place = panelPlace(icon, QSize(280, 400), available);
    QVERIFY(available.contains(place));
    QTEST(place.topLeft(), "place");
}

void TestMainWindow::closedWindowLeavesThePanelWhereThereIsNoTray()
{
    UiFixture fixture;
    Shell shell(fixture.ui);
    QSignalSpy quits(&shell, &Shell::quitAsked);
    shell.openMain();
    shell.mainView().close();
    QTRY_VERIFY(shell.panel().isVisible());
    QVERIFY(shell.panel().isOrdinaryWindow());

    shell.openMain();
    QVERIFY(shell.mainView().isVisible());
    QVERIFY(!shell.panel().isVisible());

    // While photos are watched for, only after a yes.
    shell.mainView().close();
    QTRY_VERIFY(shell.panel().isVisible());
    fixture.watcher->startWatching(fixture.folder.path());
    shell.panel().close();
    QCoreApplication::processEvents();
    QVERIFY(shell.panel().isVisible());
    QVERIFY(quits.isEmpty());
    fixture.watcher->stopWatching();
    shell.panel().close();
    QTRY_COMPARE(quits.size(), 1);
}

void TestMainWindow::trayThatCameLateAndWentIsMissed()
{
    bool there = false;
    TrayPresence tray({.hasTray = [&there] { return there; }, .secondLook = std::chrono::milliseconds(5)});
    const QSignalSpy changed(&tray, &TrayPresence::changed);
    there = true;  // nobody looked while the main window was shown
    tray.setWatchful(true);
    QVERIFY(tray.isThere());
    there = false;
    QTRY_COMPARE(changed.count(), 1);
    there = true;
    QTRY_COMPARE(changed.count(), 2);
}

void TestMainWindow::generatorIsOpenedByThePanel()
{
    UiFixture fixture;
    Shell shell(fixture.ui);
    const auto generator = []() -> QWidget* {
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (window->objectName() == u"qr-generator"_s)
                return window;
        }
        return nullptr;
    };
    QVERIFY(!generator());
    for (int opened = 0; opened < 2; ++opened) {
        find<QAbstractButton>(shell.panel(), u"openGenerator"_s).click();
        QVERIFY(generator() && generator()->isVisible());
        QCOMPARE(generator()->windowTitle(), u"QR Generator"_s);
        QCOMPARE(generator()->minimumSize(), QSize(500, 600));
        find<QLineEdit>(*generator(), u"setNumber"_s).insert(u"1"_s);
        QVERIFY(QTest::qWaitForWindowActive(generator()));
        QTest::keyClick(generator(), Qt::Key_W, Qt::ControlModifier);
        QVERIFY(!generator()->isVisible());
    }
    QCOMPARE(find<QLineEdit>(*generator(), u"setNumber"_s).text(), u"11"_s);
}

MORVAK_TEST(TestMainWindow);
#include "test_main_window.moc"
