#include "qr/CardLayout.h"
#include "support/TestMain.h"

using namespace morvak;

class TestCardLayout : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void linesStayInTheirCell_data();
    void linesStayInTheirCell();
};

void TestCardLayout::linesStayInTheirCell_data()
{
    QTest::addColumn<double>("inkStart");
    QTest::addColumn<double>("inkWidth");
    QTest::addColumn<double>("origin");
    QTest::addColumn<double>("widthScale");
    QTest::newRow("centred by the width of the ink") << 1.0 << 50.0 << 175.0 << 1.0;
    QTest::newRow("as wide as fits") << 0.0 << 192.0 << 104.0 << 1.0;
    QTest::newRow("narrowed") << 8.0 << 384.0 << 100.0 << 0.5;
    QTest::newRow("begins with many blanks") << 180.0 << 100.0 << 16.0 << 1.0;
    QTest::newRow("reaches out to the left") << -120.0 << 100.0 << 224.0 << 1.0;
    QTest::newRow("blanks only") << 0.0 << 0.0 << 200.0 << 1.0;
}

void TestCardLayout::linesStayInTheirCell()
{
    QFETCH(const double, inkStart);
    QFETCH(const double, inkWidth);
    const LinePlacement placement = placeLine(QRectF(100, 0, 200, 100), inkStart, inkWidth);
    QTEST(placement.origin, "origin");
    QTEST(placement.widthScale, "widthScale");
}

MORVAK_TEST(TestCardLayout);

#include "test_card_layout.moc"
