#include "support/TestMain.h"
#include "ui/base/theme/Theme.h"
#include "ui/sets/SetFilter.h"
#include "ui/sets/SetList.h"
#include "ui/sets/SetListModel.h"
#include "ui/sets/SetRow.h"
#include "ui/sets/SetSearch.h"

#include <QAbstractItemModelTester>
#include <QMenu>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QSignalSpy>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace morvak;

Q_DECLARE_METATYPE(morvak::SetRowAction)

namespace {

QList<SetData> numbered(const QList<int>& numbers, const QHash<int, QUuid>& ids)
{
    QList<SetData> sets;
    for (const int number : numbers) {
        SetData set;
        set.id = ids[number];
        set.setNumber = QString::number(number);
        sets.append(set);
    }
    return sets;
}

SetData described(const QString& number, const QString& brand, const QString& model, const QStringList& items)
{
    SetData set;
    set.setNumber = number;
    set.brand = brand;
    set.model = model;
    set.location = u"Studio"_s;
    for (const QString& name : items) {
        SetItem item;
        item.name = name;
        item.color = u"paars"_s;
        set.items.append(item);
    }
    return set;
}

/// A shown list of sets 1 to 40, of which the third is active, and what it asks for.
class Shown {
public:
    Shown() : list(theme)
    {
        for (int number = 1; number <= 40; ++number)
            sets.append(described(QString::number(number), number % 2 ? u"Noord"_s : u"Velora"_s, {}, {}));
        model.setSets(sets, sets[2].id);
        filter.setSourceModel(&model);
        list.setModel(&filter);
        list.resize(600, 300);
        list.show();
        QObject::connect(&list, &SetList::asked, [this](SetRowAction action, QUuid id) {
            asked.append({action, id});
        });
    }

    [[nodiscard]] QModelIndex row(int at) const { return filter.index(at, 0); }
    [[nodiscard]] QPoint placeOf(int at, SetRowAction action) const
    {
        const QRect area = list.visualRect(row(at));
        return SetDelegate::rowAt(area, row(at)).rectOf(action).center();
    }
    void key(Qt::Key key) { QTest::keyClick(&list, key); }
    void click(const QPoint& at) { QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, at); }

    Theme theme;
    QList<SetData> sets;
    SetListModel model;
    SetFilter filter;
    SetList list;
    QList<std::pair<SetRowAction, QUuid>> asked;
};

}  // namespace

class TestSetList : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void searchFinds_data();
    void searchFinds();
    void modelFollowsAnyChange();
    void searchingKeepsTheSelectedSet();
    void keysAskForTheCurrentSet_data();
    void keysAskForTheCurrentSet();
    void controlsAskForTheirRow();
    void contextMenuOffersTheFourActions();
    void newSetAboveDoesNotMoveTheList();
};

void TestSetList::searchFinds_data()
{
    QTest::addColumn<QString>("search");
    QTest::addColumn<bool>("found");
    QTest::newRow("nothing entered") << u""_s << true;
    QTest::newRow("blanks only") << u" \t "_s << true;
    QTest::newRow("brand, in another case") << u"ATELIER étoile"_s << true;
    QTest::newRow("composed differently") << u"e\u0301toile"_s << true;
    QTest::newRow("model") << u"weiss"_s << true;
    QTest::newRow("part of the number") << u"2b"_s << true;
    QTest::newRow("second item") << u"chi"_s << true;
    QTest::newRow("blanks around it") << u"\tchino  "_s << true;
    QTest::newRow("blanks inside it count") << u"atelier  étoile"_s << false;
    QTest::newRow("accents count") << u"etoile"_s << false;
    QTest::newRow("colours are not looked at") << u"paars"_s << false;
    QTest::newRow("nor places") << u"studio"_s << false;
    QTest::newRow("not across fields") << u"étoileanna"_s << false;
    QTest::newRow("patterns are text") << u".*"_s << false;
}

void TestSetList::searchFinds()
{
    QFETCH(QString, search);
    const SetData set = described(u"12B"_s, u"Atelier Étoile"_s, u"Anna Weiß"_s, {u"Jas"_s, u"Chino"_s});
    QTEST(SetSearch(search).finds(SetSearch::keyOf(set)), "found");
}

/// Any list may follow any other; the tester watches every step.
void TestSetList::modelFollowsAnyChange()
{
    QHash<int, QUuid> ids;
    for (int number = 0; number < 12; ++number)
        ids.insert(number, QUuid::createUuid());
    SetListModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QRandomGenerator random(4);
    for (int step = 0; step < 300; ++step) {
        QList<int> numbers;
        for (int number = 0; number < 12; ++number) {
            if (random.bounded(3) > 0)
                numbers.append(number);
        }
        if (step % 5 == 0)
            std::shuffle(numbers.begin(), numbers.end(), random);
        model.setSets(numbered(numbers, ids), ids[random.bounded(12)]);
        QCOMPARE(model.rowCount(), numbers.size());
        for (int row = 0; row < numbers.size(); ++row)
            QCOMPARE(model.index(row).data(SetListModel::IdRole).toUuid(), ids[numbers[row]]);
    }

    // A count that grows is one row's change, and the place of the others stays.
    QList<SetData> sets = numbered({1, 2, 3}, ids);
    model.setSets(sets, ids[1]);
    const QPersistentModelIndex kept = model.index(2);
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    ++sets[1].taggedCount;
    model.setSets(sets, ids[1]);
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes[0][0].toModelIndex().row(), 1);
    sets.prepend(numbered({4}, ids).constFirst());
    model.setSets(sets, ids[1]);
    QCOMPARE(changes.size(), 1);
    QCOMPARE(kept.row(), 3);
}

void TestSetList::searchingKeepsTheSelectedSet()
{
    Shown shown;
    const QAbstractItemModelTester tester(&shown.filter,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    shown.list.setCurrentIndex(shown.row(5));
    const QUuid selected = shown.sets[5].id;
    const auto current = [&shown] { return shown.list.currentIndex().data(SetListModel::IdRole).toUuid(); };
    for (const auto& [search, rows] :
         {std::pair(u"velora"_s, 20), {u"6"_s, 4}, {u"vel"_s, 20}, {u""_s, 40}}) {
        shown.filter.setSearch(SetSearch(search));
        QCOMPARE(shown.filter.rowCount(), rows);
        QCOMPARE(current(), selected);
        QVERIFY(shown.list.selectionModel()->isSelected(shown.list.currentIndex()));
    }
    // An edit brings a set into the search and takes it out again.
    shown.filter.setSearch(SetSearch(u"orva"_s));
    QCOMPARE(shown.filter.rowCount(), 0);
    for (const auto& [brand, rows] : {std::pair(u"Orva"_s, 1), {u"Noord"_s, 0}}) {
        shown.sets[7].brand = brand;
        shown.model.setSets(shown.sets, {});
        QCOMPARE(shown.filter.rowCount(), rows);
    }
}

void TestSetList::keysAskForTheCurrentSet_data()
{
    using Keys = QList<Qt::Key>;
    QTest::addColumn<int>("row");
    QTest::addColumn<QList<Qt::Key>>("keys");
    QTest::addColumn<QList<SetRowAction>>("asked");
    const auto row = [](const char* name, int at, const Keys& keys, const QList<SetRowAction>& asked) {
        QTest::newRow(name) << at << keys << asked;
    };
    using enum SetRowAction;
    row("Return", 1, {Qt::Key_Return}, {activate});
    row("F2", 1, {Qt::Key_F2}, {edit});
    row("Delete", 1, {Qt::Key_Delete}, {remove});
    row("Space alone does nothing", 1, {Qt::Key_Space}, {});
    row("first control", 1, {Qt::Key_Right, Qt::Key_Space}, {activate});
    row("second control", 1, {Qt::Key_Right, Qt::Key_Right, Qt::Key_Return}, {showQR});
    row("the active set has no Activeer", 2, {Qt::Key_Right, Qt::Key_Return}, {showQR});
    row("not beyond the last", 2,
        {Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Space}, {remove});
    row("back to the row", 2, {Qt::Key_Right, Qt::Key_Left, Qt::Key_Return}, {activate});
    row("another row begins anew", 0, {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down, Qt::Key_Return},
        {activate});
}

void TestSetList::keysAskForTheCurrentSet()
{
    QFETCH(int, row);
    QFETCH(QList<Qt::Key>, keys);
    Shown shown;
    shown.list.setCurrentIndex(shown.row(row));
    for (const Qt::Key key : keys)
        shown.key(key);
    QList<SetRowAction> actions;
    for (const auto& [action, id] : shown.asked) {
        actions.append(action);
        QCOMPARE(id, shown.list.currentIndex().data(SetListModel::IdRole).toUuid());
    }
    QTEST(actions, "asked");
}

void TestSetList::controlsAskForTheirRow()
{
    Shown shown;
    using enum SetRowAction;
    for (const SetRowAction action : SetRow::actions)
        shown.click(shown.placeOf(1, action));
    QCOMPARE(shown.asked.size(), 4);
    for (std::size_t i = 0; i < SetRow::actions.size(); ++i)
        QCOMPARE(shown.asked[qsizetype(i)], std::pair(SetRow::actions[i], shown.sets[1].id));

    // A hasty double click on a control is one wish; on the row it activates; the badge is no control.
    shown.asked.clear();
    QTest::mouseDClick(shown.list.viewport(), Qt::LeftButton, {}, shown.placeOf(1, edit));
    shown.click(shown.placeOf(2, activate));
    QVERIFY(shown.asked.isEmpty());
    QTest::mouseDClick(shown.list.viewport(), Qt::LeftButton, {},
                       shown.list.visualRect(shown.row(3)).center());
    QCOMPARE(shown.asked, (QList<std::pair<SetRowAction, QUuid>>{{activate, shown.sets[3].id}}));

    // Pressed on one control and let go on another is neither.
    shown.asked.clear();
    QTest::mousePress(shown.list.viewport(), Qt::LeftButton, {}, shown.placeOf(0, edit));
    QTest::mouseRelease(shown.list.viewport(), Qt::LeftButton, {}, shown.placeOf(0, remove));
    QVERIFY(shown.asked.isEmpty());
}

void TestSetList::contextMenuOffersTheFourActions()
{
    Shown shown;
    shown.list.setCurrentIndex(shown.row(4));
    QTest::keyClick(&shown.list, Qt::Key_F10, Qt::ShiftModifier);
    auto* const menu = shown.list.findChild<QMenu*>();
    QVERIFY(menu);
    QStringList labels;
    for (QAction* const entry : menu->actions()) {
        labels.append(entry->text());
        entry->trigger();
    }
    QCOMPARE(labels, QStringList({u"Bewerken"_s, u"QR-code tonen"_s, u"Activeren"_s, u"Verwijderen"_s}));
    using enum SetRowAction;
    const QUuid id = shown.sets[4].id;
    QCOMPARE(shown.asked,
             (QList<std::pair<SetRowAction, QUuid>>{{edit, id}, {showQR, id}, {activate, id}, {remove, id}}));
    menu->close();
}

void TestSetList::newSetAboveDoesNotMoveTheList()
{
    Shown shown;
    QVERIFY(QTest::qWaitForWindowExposed(&shown.list));
    const auto firstShown = [&shown] {
        return shown.list.indexAt({10, 10}).data(SetListModel::IdRole).toUuid();
    };
    shown.list.verticalScrollBar()->setValue(10 * SetRow::height + 7);
    const QUuid before = firstShown();
    ++shown.sets[20].taggedCount;
    shown.model.setSets(shown.sets, {});
    QCOMPARE(firstShown(), before);
    shown.sets.prepend(described(u"41"_s, u"Noord"_s, {}, {}));
    shown.model.setSets(shown.sets, {});
    QCOMPARE(firstShown(), before);
    // At the top the new one is seen.
    shown.list.scrollToTop();
    shown.sets.prepend(described(u"42"_s, u"Noord"_s, {}, {}));
    shown.model.setSets(shown.sets, {});
    QTRY_COMPARE(firstShown(), shown.sets.constFirst().id);
}

MORVAK_TEST(TestSetList);
#include "test_set_list.moc"
