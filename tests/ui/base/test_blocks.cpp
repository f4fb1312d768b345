#include "support/TestMain.h"
#include "ui/base/blocks/ElidedLabel.h"
#include "ui/base/blocks/NoticeLine.h"
#include "ui/base/blocks/SegmentedSwitch.h"
#include "ui/base/blocks/SetActivatedBanner.h"
#include "ui/base/blocks/StatBadge.h"
#include "ui/base/blocks/StatusDot.h"
#include "ui/base/blocks/WrapLayout.h"
#include "ui/base/theme/Theme.h"

#include <QApplication>
#include <QPushButton>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace morvak;

class TestBlocks : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void switchMovesByArrowKeysAndTellsOnce();
    void labelIsElidedOnlyWhereItDoesNotFit();
    void bannerFollowsTheHeadlineAndItsParent();
    void bannerLetsClicksThrough();
    void noticeGoesAwayByItself();
    void dotTellsItsStateInWords();
    void badgeIsReadAsOneThing();
    void wrappedRows_data();
    void wrappedRows();
};

void TestBlocks::switchMovesByArrowKeysAndTellsOnce()
{
    const Theme theme;
    SegmentedSwitch tabs(u"Tabs"_s, {u"Sets"_s, u"Log"_s, u"Handleiding"_s});
    tabs.show();
    tabs.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&tabs));
    QSignalSpy changes(&tabs, &SegmentedSwitch::currentIndexChanged);
    QCOMPARE(tabs.currentIndex(), 0);
    const auto buttons = tabs.findChildren<QPushButton*>();
    buttons.at(0)->setFocus();
    QTest::keyClick(buttons.at(0), Qt::Key_Right);
    QCOMPARE(tabs.currentIndex(), 1);
    QCOMPARE(changes.size(), 1);
    QVERIFY(buttons.at(1)->hasFocus());
    tabs.setCurrentIndex(2);
    tabs.setCurrentIndex(2);
    tabs.setCurrentIndex(7);
    QCOMPARE(tabs.currentIndex(), 2);
    QCOMPARE(changes.size(), 2);
}

void TestBlocks::labelIsElidedOnlyWhereItDoesNotFit()
{
    ElidedLabel label(u"een regel\nen nog een"_s);
    label.resize(label.sizeHint());
    QVERIFY(!label.isElided());
    label.resize(label.sizeHint().width() / 2, label.height());
    QVERIFY(label.isElided());
    QVERIFY(label.minimumSizeHint().width() < label.sizeHint().width() / 2);
    QCOMPARE(label.text(), u"een regel\nen nog een"_s);
}

void TestBlocks::bannerFollowsTheHeadlineAndItsParent()
{
    const Theme theme;
    QWidget window;
    window.resize(700, 500);
    window.show();
    SetActivatedBanner banner(theme, &window);
    QVERIFY(!banner.isVisible());
    banner.setHeadline(u"Set 12 — Noord"_s);
    QVERIFY(banner.isVisible());
    QCOMPARE(banner.accessibleName(), u"Set 12 — Noord actief"_s);
    window.resize(900, 500);
    QCOMPARE(banner.width(), 900);

    banner.setHeadline(std::nullopt);
    banner.setHeadline(u"Set 13"_s);
    QTest::qWait(0);
    QVERIFY2(banner.isVisible(), "a new headline while the old one leaves stays");
    banner.setHeadline(std::nullopt);
    QTRY_VERIFY(!banner.isVisible());
}

void TestBlocks::bannerLetsClicksThrough()
{
    const Theme theme;
    QWidget window;
    window.resize(700, 500);
    QPushButton below(u"Nieuwe Shoot"_s, &window);
    below.setGeometry(0, 0, 700, 60);
    SetActivatedBanner banner(theme, &window);
    banner.setHeadline(u"Set 12"_s);
    window.show();
    QCOMPARE(QApplication::widgetAt(window.mapToGlobal(QPoint(350, 30))), &below);
}

void TestBlocks::noticeGoesAwayByItself()
{
    NoticeLine notice;
    notice.showNotice(u"Bewaard"_s, Role::secondary, std::chrono::hours(1));
    const int height = notice.sizeHint().height();
    notice.showNotice(u"Weer bewaard"_s, Role::success, std::chrono::milliseconds(1));
    QTRY_VERIFY(notice.text().isEmpty());
    QCOMPARE(notice.sizeHint().height(), height);
}

void TestBlocks::dotTellsItsStateInWords()
{
    const Theme theme;
    StatusDot dot(theme);
    QCOMPARE(dot.text(), u"Gestopt"_s);
    dot.setActive(true);
    QCOMPARE(dot.text(), u"Actief"_s);
    dot.setStateText(u"Map niet gevonden"_s);
    QCOMPARE(dot.text(), u"Map niet gevonden"_s);
    dot.setStateText(u""_s);
    QCOMPARE(dot.accessibleName(), u"Actief"_s);
    dot.setStateText(std::nullopt);
    QCOMPARE(dot.text(), u"Actief"_s);
}

void TestBlocks::badgeIsReadAsOneThing()
{
    StatBadge badge(u"Getagd"_s, Role::success);
    badge.setValue(u"348"_s);
    QCOMPARE(badge.accessibleName(), u"348 Getagd"_s);
}

void TestBlocks::wrappedRows_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<QList<QPoint>>(
        "corners");  // of three shown boxes of 100 x 32, with a hidden one between
    using Corners = QList<QPoint>;
    QTest::newRow("one row") << 316 << Corners{{0, 0}, {108, 0}, {216, 0}};
    QTest::newRow("a pixel short") << 315 << Corners{{0, 0}, {108, 0}, {0, 40}};
    QTest::newRow("one a row") << 120 << Corners{{0, 0}, {0, 40}, {0, 80}};
    QTest::newRow("narrower than a box") << 60 << Corners{{0, 0}, {0, 40}, {0, 80}};
}

void TestBlocks::wrappedRows()
{
    QFETCH(int, width);
    QFETCH(QList<QPoint>, corners);
    QWidget bar;
    auto* const layout = new WrapLayout(&bar);
    QList<QWidget*> shown;
    for (int i = 0; i < 4; ++i) {
        auto* const box = new QWidget;
        box->setFixedSize(100, 32);
        layout->addWidget(box);
        if (i == 1)
            box->hide();
        else
            shown.append(box);
    }
    const int height = layout->heightForWidth(width);
    QCOMPARE(height, corners.constLast().y() + 32);
    layout->setGeometry(QRect(0, 0, width, height));
    for (int i = 0; i < shown.size(); ++i)
        QCOMPARE(shown.at(i)->pos(), corners.at(i));
}

MORVAK_TEST(TestBlocks);
#include "test_blocks.moc"
