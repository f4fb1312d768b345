#include "support/TestMain.h"
#include "ui/base/theme/Theme.h"
#include "ui/manual/ManualText.h"
#include "ui/manual/ManualView.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QListView>
#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;
using namespace morvak;

class TestManual : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void textsAreThoseOfTheManual();
    void viewShowsThemInOrder();
    void sectionsAreJumpedTo();
    void narrowViewHasItsListAbove();
};

/// The manual as its writer handed it in: a line for each paragraph, "# title | icon" before each section.
void TestManual::textsAreThoseOfTheManual()
{
    QFile file(QStringLiteral(MORVAK_MANUAL_TEXT));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QStringList expected = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    QStringList lines;
    for (const ManualSection& section : manualSections()) {
        lines.append(u"# %1 | %2"_s.arg(section.title, section.icon));
        for (const ManualStep& step : section.content)
            lines.append(step.text);
    }
    QCOMPARE(lines, expected);
}

void TestManual::viewShowsThemInOrder()
{
    const Theme theme;
    ManualView view(theme);
    QStringList expected;
    for (const ManualSection& section : manualSections()) {
        expected.append(section.title);
        for (const ManualStep& step : section.content)
            expected.append(step.text);
        QVERIFY2(Icons::symbols().contains(section.icon), qPrintable(section.icon));
    }
    QStringList shown;
    for (const QLabel* label : view.findChild<QScrollArea*>()->widget()->findChildren<QLabel*>())
        shown.append(label->text());
    QCOMPARE(shown, expected);
}

void TestManual::sectionsAreJumpedTo()
{
    const Theme theme;
    ManualView view(theme);
    view.resize(1000, 400);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    auto* const list = view.findChild<QListView*>(u"manualSections"_s);
    auto* const bar = view.findChild<QScrollArea*>()->verticalScrollBar();
    QVERIFY(list->isVisible());
    QCOMPARE(list->currentIndex().row(), 0);
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Down);
    const int third = bar->value();
    QVERIFY(third > 0);
    QTest::keyClick(list, Qt::Key_End);
    QCOMPARE(list->currentIndex().row(), 6);
    QCOMPARE(bar->value(), bar->maximum());
    QTest::keyClick(view.findChild<QScrollArea*>(), Qt::Key_Home);
    QCOMPARE(bar->value(), 0);
    QCOMPARE(list->currentIndex().row(), 0);
    bar->setValue(third);
    QCOMPARE(list->currentIndex().row(), 2);
}

void TestManual::narrowViewHasItsListAbove()
{
    const Theme theme;
    ManualView view(theme);
    view.resize(640, 400);
    view.show();
    auto* const picker = view.findChild<QComboBox*>(u"manualPicker"_s);
    QVERIFY(picker->isVisible() && !view.findChild<QListView*>(u"manualSections"_s)->isVisible());
    picker->setFocus();
    QTest::keyClick(picker, Qt::Key_Down);
    QTRY_VERIFY(view.findChild<QScrollArea*>()->verticalScrollBar()->value() > 0);
    QCOMPARE(picker->currentIndex(), 1);
}

MORVAK_TEST(TestManual);
#include "test_manual.moc"
