#include "model/FindById.h"
#include "support/ScannerKeys.h"
#include "support/TestMain.h"
#include "support/UiFixture.h"
#include "ui/main/MainView.h"
#include "ui/scan/KeyClock.h"
#include "ui/scan/ScanField.h"
#include "ui/scan/ScanText.h"
#include "ui/scan/ScannerBurst.h"

#include <QDialog>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRandomGenerator>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace morvak;
using morvak::test::ScannerKeys;
using morvak::test::shownTexts;
using morvak::test::UiFixture;
using Kind = ScanKey::Kind;
using Place = ScannerBurst::Place;

namespace {

/// A key as the tables write it: one character, and the milliseconds since the one before when they are not
/// 10. "⏎" Return, "⇧" Shift, "´" a dead accent, "←" a cursor key, "ƒ" a function key, "⌘" a shortcut, "^"
/// Ctrl+M.
struct Press {
    ScanKey key;
    int gap = 10;
};

Press pressOf(const QString& written)
{
    static const QHash<QChar, Kind> kinds{
        {u'⏎', Kind::lineBreak}, {u'⇧', Kind::modifier}, {u'´', Kind::deadKey},     {u'←', Kind::other},
        {u'ƒ', Kind::silent},    {u'⌘', Kind::shortcut}, {u'^', Kind::controlBreak}};
    const QChar sign = written.front();
    Press press{{kinds.value(sign, Kind::text), sign.unicode(), {}}};
    if (press.key.kind == Kind::lineBreak || press.key.kind == Kind::controlBreak)
        press.key.text = u'\n';
    else if (press.key.kind == Kind::deadKey)
        press.key.text = QChar(0x0301);
    else if (press.key.kind == Kind::text)
        press.key.text = sign;
    if (written.size() > 1)
        press.gap = written.sliced(1).toInt();
    return press;
}

/// What reached the widget with the focus, in its order, with "|" after keys that had been held back; and
/// which bursts ended.
struct Played {
    QString typed;
    QStringList bursts;
};

/// Plays presses into a burst as the window does, the silence in between included.
class Player {
public:
    explicit Player(Place place) : m_place(place) {}

    Played play(const QString& presses)
    {
        for (const QString& written : presses.split(u' ', Qt::SkipEmptyParts))
            press(pressOf(written), written.first(1));
        act(m_burst.silence());
        return m_played;
    }

private:
    void press(const Press& press, const QString& sign)
    {
        if (m_burst.patience() > ScannerBurst::Time(0) && ScannerBurst::Time(press.gap) > m_burst.patience())
            act(m_burst.silence());
        m_time += ScannerBurst::Time(press.gap);
        act(m_burst.before(press.key, m_time));
        const ScannerBurst::Fate fate = m_burst.press(press.key, m_time, m_place);
        if (fate == ScannerBurst::Fate::hold)
            m_held += sign;
        else if (fate == ScannerBurst::Fate::pass && press.key.kind != Kind::modifier)
            m_played.typed += sign;
        if (m_burst.isCaught())
            m_held.clear();
    }

    void act(ScannerBurst::Verdict verdict)
    {
        if (verdict == ScannerBurst::Verdict::typed)
            m_played.typed += std::exchange(m_held, {}) + u'|';
        else if (verdict == ScannerBurst::Verdict::ended)
            m_played.bursts.append(m_burst.takeText());
    }

    Place m_place;
    ScannerBurst m_burst;
    ScannerBurst::Time m_time{1000};
    QString m_held;
    Played m_played;
};

/// A main window with three sets, and what is typed into it.
class Desk : public UiFixture {
public:
    Desk()
    {
        store.createShoot(u"Herfst"_s, {}, {});
        for (const QString& text : {u"SET:1"_s, u"SET:2"_s, u"SET:3"_s})
            store.handleScanInput(text);
        window.show();
    }

    template <typename Widget>
    [[nodiscard]] Widget& find(const QString& name) const
    {
        return *window.findChild<Widget*>(name);
    }

    [[nodiscard]] QString fieldText() const { return find<ScanField>(u"scanField"_s).scanText(); }

    /// Every widget of the window that a person reaches with Tab.
    [[nodiscard]] QWidgetList focusPlaces() const
    {
        QWidgetList places;
        for (QWidget* const widget : window.findChildren<QWidget*>()) {
            if (widget->isVisible() && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus) &&
                !widget->focusProxy())
                places.append(widget);
        }
        return places;
    }

    MainView window{ui};
    ScannerKeys keys{window};
};

}  // namespace

class TestScanner : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void scannersAndPeopleAreToldApart_data();
    void scannersAndPeopleAreToldApart();
    void stampsTellTheDistances();
    void capsLockIsUndone_data();
    void capsLockIsUndone();
    void everyScannerActivatesItsSet();
    void scanIsNotMixedWithTypedText();
    void handTypingIsAsBefore();
    void keysOfOthersAreLeftAlone();
    void halfAScanIsNotTaken();
};

void TestScanner::scannersAndPeopleAreToldApart_data()
{
    QTest::addColumn<bool>("inField");
    QTest::addColumn<QString>("presses");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("bursts");
    const auto row = [](const char* name, bool inField, const QString& presses, const QString& typed,
                        const QStringList& bursts = {}) {
        QTest::newRow(name) << inField << presses << typed << bursts;
    };
    row("a scan on a button", false, u"S E T : 1 ⏎ B : 2 ⏎"_s, {}, {u"SET:1\nB:2\n"_s});
    row("Shift pressed before each capital", false, u"⇧40 S40 ⇧40 E40 ⇧40 T40 ⏎40"_s, {}, {u"SET\n"_s});
    row("two scans", false, u"S E T ⏎ B151 R A ⏎"_s, {}, {u"SET\n"_s, u"BRA\n"_s});
    row("it stutters in the middle", false, u"S E T :150 1 ⏎"_s, {}, {u"SET:1\n"_s});
    row("and at its first key", false, u"S E100 T : 1 ⏎"_s, u"S|"_s, {u"SET:1\n"_s});
    row("and again and again", false, u"S E60 T60 ^ B R A ⏎"_s, u"S|E|"_s, {u"SET\nBRA\n"_s});
    row("CR LF, a function key before and after", false, u"ƒ S E T ⏎ ⏎ ƒ"_s, {}, {u"SET\n\n"_s});
    row("control characters for Return", false, u"S E T ^ 1 ⌘ 2"_s, u"⌘"_s, {u"SET\n12"_s});
    row("accents", false, u"C a f ´ e"_s, {}, {u"Café"_s});
    row("cursor keys in a burst", false, u"S E T ← 1"_s, {}, {u"SET1"_s});
    row("a roll on a list", false, u"t h200 e20 ⏎200"_s, u"t|he|⏎|"_s);
    row("a key and a cursor key", false, u"t ← ←"_s, u"t|←←"_s);
    row("a key and a shortcut", false, u"t ⌘ ^"_s, u"t|⌘^"_s);
    row("held-down Return", false, u"⏎ ⏎30 ⏎30 ⏎30"_s, u"⏎|⏎|⏎|⏎|"_s);
    row("held-down letter", true, u"a a30 a30 a30 a30 a30 ⏎300"_s, u"aaaaaa⏎|"_s);
    row("a scan in the field", true, u"S E T : 1 ⏎ B ⏎"_s, u"SET:"_s, {u"SET:1\nB\n"_s});
    row("a fast hand in the field", true, u"S90 E120 T45 :110 ⇧30 120 ⏎130"_s, u"SET:1⏎|"_s);
    row("Return rolled with the last digit", true, u"1200 2200 ⏎30"_s, u"12⏎|"_s);
    row("Return and at once the next", true, u"1200 ⏎30 a30 b200"_s, u"1⏎a|b"_s);
}

void TestScanner::scannersAndPeopleAreToldApart()
{
    QFETCH(const bool, inField);
    QFETCH(const QString, presses);
    const Played played = Player(inField ? Place::scanField : Place::elsewhere).play(presses);
    QTEST(played.typed, "typed");
    QTEST(played.bursts, "bursts");
}

void TestScanner::stampsTellTheDistances()
{
    KeyClock clock;
    auto step = [&clock, last = clock.timeOf(0xFFFF'FFF0, 0)](quint64 stamp, qint64 arrival) mutable {
        const auto before = std::exchange(last, clock.timeOf(stamp, arrival));
        return (last - before).count();
    };
    QCOMPARE(step(0xFFFF'FFFA, 500), 10);  // queued up while the main thread was busy
    QCOMPARE(step(0x0000'0004, 500), 10);  // the stamps begin again
    QCOMPARE(step(0, 520), 20);            // one without
    QCOMPARE(step(0x0000'0036, 530), 30);
    QCOMPARE(step(0x0000'0030, 540), 0);
}

void TestScanner::capsLockIsUndone_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("meant");
    QTest::newRow("a card") << u"set:12a\nbrand:nOORD\niTEM:x"_s << u"set:12a\nbrand:nOORD\niTEM:x"_s;
    QTest::newRow("Caps Lock") << u"set:12A\nbrand:nOORD éÉ ß\nitem:x"_s
                               << u"SET:12a\nBRAND:Noord Éé ß\nITEM:X"_s;
    QTest::newRow("as it is printed") << u"SET:12a\nBRAND:noord"_s << u"SET:12a\nBRAND:noord"_s;
    QTest::newRow("blanks about the key") << u" set : ab"_s << u" SET : AB"_s;
    QTest::newRow("other keys do not count") << u"set:a\nNOTE:b"_s << u"SET:A\nnote:B"_s;
    QTest::newRow("no set text") << u"note:aB\nhello"_s << u"note:aB\nhello"_s;
    QTest::newRow("beyond the first plane") << u"set:𐐨"_s << u"SET:𐐀"_s;
}

void TestScanner::capsLockIsUndone()
{
    QFETCH(QString, typed);
    QTEST(withoutCapsLock(typed), "meant");
}

/// Whatever has the focus, on whatever tab: one scan, one set, and nothing else happens.
void TestScanner::everyScannerActivatesItsSet()
{
    Desk desk;
    int pressed = 0;
    for (QAbstractButton* const button : desk.window.findChildren<QAbstractButton*>())
        connect(button, &QAbstractButton::clicked, button, [&pressed] { ++pressed; });
    QRandomGenerator random(7);
    const auto oneOf = [&random](const QStringList& all) { return all[random.bounded(int(all.size()))]; };
    const qsizetype before = desk.store.activeShoot()->activationLog.size();
    QStringList expected;
    for (int number = 0; number < 200; ++number) {
        desk.keys.pause();
        desk.window.setSelectedTab(random.bounded(int(desk.window.tabTitles().size())));
        const QWidgetList places = desk.focusPlaces();
        QWidget* const focused = places[random.bounded(int(places.size()))];
        focused->setFocus();
        QStringList lines{u"SET:%1"_s.arg(number),
                          u"BRAND:"_s + oneOf({u"Noord"_s, u"ZEE 2"_s, u"o'Neel"_s})};
        for (int item = random.bounded(5) * random.bounded(16); item > 0; --item)
            lines.append(u"ITEM:"_s + oneOf({u"coated pants/navy"_s, u"Chino"_s, u"sweeter/off white"_s}));
        const SetData card = *SetData::parse(lines.join(u'\n'));
        expected.append(card.headline() + card.description());
        const int longest = random.bounded(1, 41);
        desk.keys.type(lines.join(oneOf({u"\n"_s, u"\n\n"_s, u"\t"_s})) + oneOf({{}, u"\n"_s, u"\t"_s}),
                       [&] { return random.bounded(longest) + 1; });
        QCOMPARE(desk.window.focusWidget(), focused);
    }
    const auto activations = [&] { return desk.store.activeShoot()->activationLog.sliced(before); };
    QTRY_COMPARE(activations().size(), expected.size());
    QStringList activated;
    const QList<SetData> sets = desk.store.activeShoot()->sets;
    for (const SetActivation& activation : activations()) {
        const SetData* const set = findById(sets, activation.setId);
        activated.append(set->headline() + set->description());
    }
    QCOMPARE(activated, expected);
    QCOMPARE(desk.watcher->currentSet()->id, desk.store.activeSetId());
    QCOMPARE(pressed, 0);
    QVERIFY(!desk.find<QListView>(u"setList"_s).currentIndex().isValid());
    QVERIFY(desk.fieldText().isEmpty());
}

void TestScanner::scanIsNotMixedWithTypedText()
{
    Desk desk;
    auto& field = desk.find<ScanField>(u"scanField"_s);
    field.setFocus();
    field.setText(u"SET:9"_s);
    desk.keys.type(u"BRAND:Noord\n"_s);
    QTRY_COMPARE(desk.watcher->currentSet().value_or(SetData()).headline(), u"Noord"_s);
    QCOMPARE(desk.fieldText(), u"SET:9"_s);

    // What is no set stays to be seen, until the next scan takes its place.
    desk.keys.pause();
    desk.keys.type(u"MODEL:Anna\nX\n"_s);
    QTRY_VERIFY(!shownTexts(desk.window).filter(u"Geen set herkend"_s).isEmpty());
    QCOMPARE(desk.fieldText(), u"SET:9\nMODEL:Anna\nX"_s);
    desk.keys.pause();
    desk.keys.type(u"set:12\nbrand:nOORD"_s);
    QTRY_COMPARE(desk.watcher->currentSet()->headline(), u"Set 12 — Noord"_s);
    QCOMPARE(desk.fieldText(), u"SET:9"_s);
    field.clear();

    // On another tab the log tells.
    desk.window.setSelectedTab(1);
    desk.keys.pause();
    desk.keys.type(u"hello\n"_s);
    QTRY_VERIFY(!desk.logLines().filter(u"bevat geen set"_s).isEmpty());
    desk.window.setSelectedTab(0);

    // No scan, for it has no line and no key: words in the field, wherever the focus is.
    desk.keys.pause();
    desk.find<QPushButton>(u"newShoot"_s).setFocus();
    desk.keys.type(u"8712345"_s);
    QTRY_COMPARE(desk.fieldText(), u"8712345"_s);  // in the place of the last scan
    QCOMPARE(desk.store.activeShoot()->activationLog.size(), 5);
}

void TestScanner::handTypingIsAsBefore()
{
    Desk desk;
    auto& field = desk.find<ScanField>(u"scanField"_s);
    field.setFocus();
    const auto byHand = [] { return 180; };
    desk.keys.type(u"SET:4"_s, byHand);
    QCOMPARE(desk.fieldText(), u"SET:4"_s);
    desk.keys.press(Qt::Key_2, u"2"_s, {}, 200);
    desk.keys.press(Qt::Key_Return, u"\r"_s, {}, 40);
    QTRY_COMPARE(desk.watcher->currentSet().value_or(SetData()).setNumber, u"42"_s);
    QVERIFY(desk.fieldText().isEmpty());

    // A button is pressed, a row is found by its letters, Tab goes on.
    desk.keys.pause();
    auto& button = desk.find<QPushButton>(u"activateScan"_s);
    QSignalSpy clicked(&button, &QPushButton::clicked);
    button.setFocus();
    desk.keys.type(u" SET:5\n"_s);
    QTRY_COMPARE(desk.watcher->currentSet()->setNumber, u"5"_s);
    desk.keys.pause();
    desk.keys.press(Qt::Key_Space, u" "_s);
    QTRY_COMPARE(clicked.size(), 1);
    desk.keys.pause();
    auto& list = desk.find<QListView>(u"setList"_s);
    list.setFocus();
    desk.keys.type(u"SE"_s);
    QTRY_VERIFY(list.currentIndex().isValid());
    desk.keys.pause();
    button.setFocus();
    desk.keys.press(Qt::Key_Tab, u"\t"_s);
    QTRY_VERIFY(desk.window.focusWidget() != &button);
}

void TestScanner::keysOfOthersAreLeftAlone()
{
    Desk desk;
    QVERIFY(QTest::qWaitForWindowActive(&desk.window));
    QLineEdit search(&desk.window);
    search.show();
    search.setFocus();
    const auto byHand = [] { return 45; };
    desk.keys.type(u"jas zwart\n"_s, byHand);  // as fast as a scanner, but no set
    QTRY_COMPARE(search.text(), u"jas zwart"_s);
    desk.keys.pause();
    desk.keys.type(u"SET:7\n"_s);
    QCOMPARE(search.text(), u"jas zwartSET:7"_s);
    QVERIFY(desk.fieldText().isEmpty());

    // Nor what is typed into a sheet; when it closes, the scan field has the focus.
    search.hide();
    desk.find<QPushButton>(u"newShoot"_s).setFocus();
    QDialog sheet(&desk.window);
    QLineEdit name(&sheet);
    name.setFocus();
    sheet.open();
    QVERIFY(QTest::qWaitForWindowActive(&sheet));
    ScannerKeys(sheet).type(u"SET:7"_s);
    QCOMPARE(name.text(), u"SET:7"_s);
    sheet.reject();
    QTRY_COMPARE(desk.window.focusWidget()->objectName(), u"scanField"_s);
    QVERIFY(desk.fieldText().isEmpty());
}

/// Half a scan may name another set.
void TestScanner::halfAScanIsNotTaken()
{
    Desk desk;
    desk.keys.type(u"SET:7\nBRA"_s);
    QEvent away(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(&desk.window, &away);
    QCOMPARE(desk.fieldText(), u"SET:7\nBRA"_s);
    desk.keys.pause();
    desk.keys.type(u"SET:8\n"_s);
    QTRY_COMPARE(desk.watcher->currentSet().value_or(SetData()).setNumber, u"8"_s);
}

MORVAK_TEST(TestScanner);
#include "test_scanner.moc"
