#include "support/TestMain.h"
#include "ui/base/theme/Icons.h"
#include "ui/base/theme/Theme.h"

#include <QImage>

using namespace Qt::StringLiterals;
using namespace morvak;

namespace {

/// Share of the picture that is drawn on, from 0 to 1.
double coverage(const QImage& image)
{
    int alpha = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            alpha += qAlpha(image.pixel(x, y));
    }
    return alpha / 255.0 / (image.width() * image.height());
}

QColor strongestColor(const QImage& image)
{
    QRgb strongest = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            strongest = qAlpha(image.pixel(x, y)) > qAlpha(strongest) ? image.pixel(x, y) : strongest;
    }
    return QColor::fromRgb(strongest);
}

}  // namespace

class TestIcons : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everySymbolIsDrawn();
    void iconsFollowTheScheme();
    void pixmapsAreSharpAtEveryScale();
    void unknownSymbolIsEmpty();
    void logoAndTrayAreDrawn();
    void ownDialogsFindTheirIcons();
};

void TestIcons::everySymbolIsDrawn()
{
    const Theme theme;
    QVERIFY(Icons::symbols().contains(u"barcode.viewfinder"_s));
    for (const QString& symbol : Icons::symbols()) {
        for (const int size : {16, 22, 48}) {
            const double covered = coverage(theme.icons().pixmap(symbol, size, Role::text, 1).toImage());
            QVERIFY2(covered > 0.03 && covered < 0.95,
                     qPrintable(u"%1 at %2: %3"_s.arg(symbol).arg(size).arg(covered)));
        }
    }
}

void TestIcons::iconsFollowTheScheme()
{
    Theme theme;
    theme.setChoice(Theme::Choice::light);
    const QIcon icon = theme.icons().icon(u"circle.fill"_s, Role::success);
    QCOMPARE(strongestColor(icon.pixmap(16, 16).toImage()), colorOf(Role::success, Scheme::light));
    theme.setChoice(Theme::Choice::dark);
    QCOMPARE(strongestColor(icon.pixmap(16, 16).toImage()), colorOf(Role::success, Scheme::dark));
}

void TestIcons::pixmapsAreSharpAtEveryScale()
{
    const Theme theme;
    const QPixmap pixmap = theme.icons().pixmap(u"trash"_s, 16, Role::text, 2);
    QCOMPARE(pixmap.size(), QSize(32, 32));
    QCOMPARE(pixmap.deviceIndependentSize(), QSizeF(16, 16));
    QCOMPARE(theme.icons().icon(u"trash"_s).pixmap({16, 16}, 2.0).size(), QSize(32, 32));
}

void TestIcons::unknownSymbolIsEmpty()
{
    const Theme theme;
    QVERIFY(theme.icons().icon(u"no.such.symbol"_s).isNull());
    QVERIFY(theme.icons().pixmap(u"no.such.symbol"_s, 16, Role::text, 1).isNull());
}

void TestIcons::logoAndTrayAreDrawn()
{
    for (const QIcon& icon : {Icons::logo(), Icons::tray()})
        QVERIFY(coverage(icon.pixmap(32, 32).toImage()) > 0.8);
}

void TestIcons::ownDialogsFindTheirIcons()
{
    const Theme theme;
    QVERIFY(!QIcon::fromTheme(u"go-parent-folder"_s).pixmap(16, 16).isNull());
}

MORVAK_TEST(TestIcons);
#include "test_icons.moc"
