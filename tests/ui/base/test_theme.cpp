#include "support/TestMain.h"
#include "ui/base/theme/StyleSheet.h"
#include "ui/base/theme/Theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QLabel>
#include <QPalette>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace morvak;

namespace {

constexpr double leastContrast = 4.5;

}  // namespace

class TestTheme : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void contrastIsMeasuredAsWcagDoes();
    void textIsReadable_data();
    void textIsReadable();
    void mixedTextColoursAreReadable();
    void choiceDressesTheApplicationAnew();
    void styleSheetKnowsAllItsTokens();
    void digitsOfTabularFontsAreEquallyWide();
    void portalDecidesBeforeThePalette();
};

void TestTheme::contrastIsMeasuredAsWcagDoes()
{
    QCOMPARE(contrastRatio(Qt::black, Qt::white), 21.0);
    QVERIFY(qAbs(contrastRatio(QColor(0x77, 0x77, 0x77), Qt::white) - 4.48) < 0.01);
}

void TestTheme::textIsReadable_data()
{
    QTest::addColumn<Role>("text");
    QTest::addColumn<QList<Role>>("grounds");
    for (const Role role :
         {Role::text, Role::secondary, Role::accent, Role::success, Role::warning, Role::danger, Role::info})
        QTest::addRow("%s", nameOf(role).data()) << role << QList{Role::surface, Role::card};
    QTest::newRow("text under the pointer") << Role::text << QList{Role::hover};
    QTest::newRow("on the accent") << Role::onAccent << QList{Role::accent};
    QTest::newRow("on the banner") << Role::onBanner << QList{Role::banner};
}

void TestTheme::textIsReadable()
{
    QFETCH(Role, text);
    QFETCH(QList<Role>, grounds);
    for (const Scheme scheme : {Scheme::light, Scheme::dark}) {
        for (const Role ground : std::as_const(grounds)) {
            const double ratio = contrastRatio(colorOf(text, scheme), colorOf(ground, scheme));
            QVERIFY2(ratio >= leastContrast,
                     qPrintable(u"%1 on %2: %3"_s.arg(nameOf(text), nameOf(ground)).arg(ratio)));
        }
    }
}

void TestTheme::mixedTextColoursAreReadable()
{
    for (const Scheme scheme : {Scheme::light, Scheme::dark}) {
        const QPalette palette = paletteOf(scheme);
        QVERIFY(contrastRatio(palette.color(QPalette::PlaceholderText), palette.color(QPalette::Base)) >=
                leastContrast);
        QVERIFY(contrastRatio(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight)) >=
                leastContrast);
        QVERIFY(contrastRatio(palette.color(QPalette::Text), palette.color(QPalette::AlternateBase)) >=
                leastContrast);
    }
}

void TestTheme::choiceDressesTheApplicationAnew()
{
    Theme theme;
    theme.setChoice(Theme::Choice::light);
    QSignalSpy changes(&theme, &Theme::changed);
    QLabel label;
    label.setProperty("textRole", u"danger"_s);
    label.ensurePolished();
    QCOMPARE(label.palette().color(QPalette::WindowText), colorOf(Role::danger, Scheme::light));

    theme.setChoice(Theme::Choice::dark);
    QCOMPARE(changes.size(), 1);
    QCOMPARE(theme.color(Role::card), colorOf(Role::card, Scheme::dark));
    QCOMPARE(QApplication::palette().color(QPalette::Window), colorOf(Role::surface, Scheme::dark));
    QCOMPARE(label.palette().color(QPalette::WindowText), colorOf(Role::danger, Scheme::dark));

    theme.setChoice(Theme::Choice::dark);
    QCOMPARE(changes.size(), 1);
}

void TestTheme::styleSheetKnowsAllItsTokens()
{
    for (const Scheme scheme : {Scheme::light, Scheme::dark}) {
        const QString sheet = styleSheetOf(scheme);
        QVERIFY(sheet.contains(colorOf(Role::accent, scheme).name()));
        QVERIFY2(!sheet.contains(u'@'), qPrintable(sheet.sliced(qMax(0, sheet.indexOf(u'@')), 20)));
    }
}

void TestTheme::digitsOfTabularFontsAreEquallyWide()
{
    for (const QString& family : QFontDatabase::families()) {
        const QFontMetricsF metrics(Theme::tabular(QFont(family, 13)));
        for (const QChar digit : u"123456789"_s)
            QVERIFY2(qAbs(metrics.horizontalAdvance(digit) - metrics.horizontalAdvance(u'0')) < 0.01,
                     qPrintable(family));
    }
}

void TestTheme::portalDecidesBeforeThePalette()
{
    QCOMPARE(schemeOfPortal(1), Scheme::dark);
    QCOMPARE(schemeOfPortal(2), Scheme::light);
    QVERIFY(!schemeOfPortal(0));
    QVERIFY(!schemeOfPortal(7));
    QCOMPARE(schemeOfPalette(paletteOf(Scheme::dark)), Scheme::dark);
    QCOMPARE(schemeOfPalette(paletteOf(Scheme::light)), Scheme::light);
}

MORVAK_TEST(TestTheme);
#include "test_theme.moc"
