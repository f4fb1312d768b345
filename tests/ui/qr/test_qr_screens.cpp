#include "qr/QRGenerator.h"
#include "qr/QRPhotoDetector.h"
#include "support/TestMain.h"
#include "support/UiFixture.h"
#include "ui/qr/BulkQRExportSheet.h"
#include "ui/qr/QRGeneratorView.h"
#include "ui/qr/QRSheet.h"
#include "ui/qr/QRTexts.h"
#include "ui/qr/SetChoiceList.h"
#include "ui/qr/SetChoiceModel.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>
#include <QThreadPool>

using namespace Qt::StringLiterals;
using namespace morvak;
using morvak::test::shownTexts;
using morvak::test::UiFixture;

namespace {

SetData numbered(const QString& number)
{
    SetData set;
    set.setNumber = number;
    set.brand = u"Noord"_s;
    return set;
}

QStringList numbersOf(const QList<SetData>& sets)
{
    QStringList numbers;
    for (const SetData& set : sets)
        numbers.append(set.setNumber);
    return numbers;
}

template <typename Widget>
Widget& find(const QWidget& in, const QString& name)
{
    return *in.findChild<Widget*>(name);
}

QPushButton& button(const QWidget& in, const QString& name)
{
    return find<QPushButton>(in, name);
}

bool says(const QWidget& screen, const QString& text)
{
    return shownTexts(screen).join(u'\n').contains(text);
}

}  // namespace

class TestQRScreens : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void textsWithoutACodeAreKnown_data();
    void textsWithoutACodeAreKnown();
    void cautionAboutTheCode_data();
    void cautionAboutTheCode();
    void sheetCopiesAndSaves();
    void sheetWithoutACodeSaysWhy();
    void generatorShowsTheLastCodeAndSavesTheFields();
    void chosenSetsKeepTheirOrder();
    void exportIsChosenByKeyAndMouse();
    void exportWritesAndCloses();
};

void TestQRScreens::textsWithoutACodeAreKnown_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("as much as fits") << QString(2331, u'a');
    QTest::newRow("one more") << QString(2332, u'a');
    QTest::newRow("bytes count, not characters") << QString(1166, u'é');
    QTest::newRow("lone surrogate") << u"SET:"_s + QChar(0xd800);
}

void TestQRScreens::textsWithoutACodeAreKnown()
{
    QFETCH(const QString, text);
    QCOMPARE(QRTexts::problem(text).isEmpty(), QRGenerator::generate(text, 300).has_value());
}

void TestQRScreens::cautionAboutTheCode_data()
{
    QTest::addColumn<std::optional<QString>>("made");
    QTest::addColumn<QString>("now");
    QTest::addColumn<QString>("inCaution");
    const auto row = [](const char* name, const std::optional<QString>& made, const QString& now,
                        const QString& caution) { QTest::newRow(name) << made << now << caution; };
    row("none made", std::nullopt, u"SET:1"_s, {});
    row("as the fields are", u"SET:1"_s, u"SET:1"_s, {});
    row("older", u"SET:1"_s, u"SET:2"_s, u"van vóór de wijziging"_s);
    row("older and no set", u""_s, u"SET:2"_s, u"van vóór de wijziging"_s);
    row("no set", u"MODEL:Anna"_s, u"MODEL:Anna"_s, u"geen set actief"_s);
    row("nothing at all", u""_s, u""_s, u"geen set actief"_s);
    row("no code", QString(3000, u'a'), QString(3000, u'a'), u"Te veel tekst"_s);
    row("had no code", QString(3000, u'a'), u"SET:1"_s, {});
}

void TestQRScreens::cautionAboutTheCode()
{
    QFETCH(const std::optional<QString>, made);
    QFETCH(const QString, now);
    QFETCH(const QString, inCaution);
    const QString caution = QRTexts::caution(made, now);
    QCOMPARE(caution.isEmpty(), inCaution.isEmpty());
    QVERIFY2(caution.contains(inCaution), qPrintable(caution));
}

void TestQRScreens::sheetCopiesAndSaves()
{
    UiFixture fixture;
    QWidget window;
    window.show();
    const SetData set = numbered(u"12"_s);
    QRSheet sheet(fixture.ui, set, &window);
    sheet.open();
    QVERIFY(QTest::qWaitForWindowActive(&sheet));
    QVERIFY(says(sheet, u"QR-code: Set 12 — Noord"_s));

    // A scanner that reads the code off the screen types it into the sheet.
    QTest::keyClicks(sheet.focusWidget(), u"SET:12 "_s);
    QTest::keyClick(sheet.focusWidget(), Qt::Key_Return);
    QVERIFY(sheet.isVisible());
    QVERIFY(fixture.dialogs.asked.isEmpty());

    QTest::keyClick(&sheet, Qt::Key_C, Qt::ControlModifier);
    const QImage copied = QApplication::clipboard()->image();
    QCOMPARE(copied.size(), QSize(600, 600));
    QCOMPARE(QRPhotoDetector::detectQRText(copied), set.toQRText());
    QVERIFY(says(sheet, u"gekopieerd"_s));

    fixture.dialogs.saved = fixture.data.filePath(u"missing/code.png"_s);
    button(sheet, u"saveQR"_s).click();
    QCOMPARE(fixture.dialogs.asked.constFirst(), u"SET-12-Noord.png"_s);
    QVERIFY(says(sheet, u"“code.png” kon niet bewaard worden"_s));
    fixture.dialogs.saved = fixture.data.filePath(u"code.png"_s);
    QTest::keyClick(&sheet, Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(QRPhotoDetector::detectQRText(QImage(fixture.dialogs.saved)), set.toQRText());
    QVERIFY(says(sheet, u"Bewaard: code.png"_s));
    QVERIFY(sheet.isVisible());
    QTest::keyClick(&sheet, Qt::Key_Escape);
    QVERIFY(!sheet.isVisible());
}

void TestQRScreens::sheetWithoutACodeSaysWhy()
{
    UiFixture fixture;
    QWidget window;
    SetData set = numbered(u"12"_s);
    set.model = QString(3000, u'a');
    const QRSheet sheet(fixture.ui, set, &window);
    QVERIFY(says(sheet, u"Te veel tekst"_s));
    for (const QString& name : {u"copyQR"_s, u"saveQR"_s}) {
        QVERIFY(!button(sheet, name).isEnabled());
        QVERIFY(button(sheet, name).toolTip().contains(u"Te veel tekst"_s));
    }
}

void TestQRScreens::generatorShowsTheLastCodeAndSavesTheFields()
{
    UiFixture fixture;
    QRGeneratorView window(fixture.ui);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QVERIFY(says(window, u"Vul de gegevens in en klik 'Genereer QR'"_s));
    QVERIFY(!button(window, u"copyQR"_s).isVisible());
    for (const QString& typed : {u"7"_s, u"Orva"_s, u"Anna"_s, u"Studio"_s}) {
        QTest::keyClicks(QApplication::focusWidget(), typed);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    button(window, u"appendItem"_s).click();
    find<QLineEdit>(window, u"itemName"_s).setText(u"Jas"_s);
    button(window, u"appendItem"_s).click();  // stays empty
    QTest::keyClick(&find<QLineEdit>(window, u"location"_s), Qt::Key_Return);
    const QString made = u"SET:7\nBRAND:Orva\nITEM:Jas\nMODEL:Anna\nLOCATION:Studio"_s;
    QTRY_VERIFY(find<QWidget>(window, u"qrCode"_s).isVisible());
    QCOMPARE(find<QWidget>(window, u"qrCode"_s).accessibleDescription(), made);
    QVERIFY(!find<QLabel>(window, u"qrCaution"_s).isVisible());

    // The image stays as it was made, the file takes the fields.
    find<QLineEdit>(window, u"brand"_s).clear();
    QVERIFY(find<QLabel>(window, u"qrCaution"_s).isVisible());
    button(window, u"copyQR"_s).click();
    const QImage copied = QApplication::clipboard()->image();
    QCOMPARE(copied.size(), QSize(300, 300));
    QCOMPARE(QRPhotoDetector::detectQRText(copied), made);
    fixture.dialogs.saved = fixture.data.filePath(u"code.png"_s);
    button(window, u"saveQR"_s).click();
    QCOMPARE(fixture.dialogs.asked.constFirst(), u"SET-7-.png"_s);
    const QImage saved(fixture.dialogs.saved);
    QCOMPARE(saved.size(), QSize(600, 600));
    QCOMPARE(QRPhotoDetector::detectQRText(saved), u"SET:7\nITEM:Jas\nMODEL:Anna\nLOCATION:Studio"_s);

    find<QLineEdit>(window, u"model"_s).setText(QString(3000, u'a'));
    QTest::keyClick(&window, Qt::Key_Return, Qt::ControlModifier);
    QVERIFY(says(window, u"Vul de gegevens in en klik 'Genereer QR'"_s));
    QVERIFY(says(window, u"Te veel tekst"_s));
    QTest::keyClick(&window, Qt::Key_Escape);
    QVERIFY(!window.isVisible());
}

void TestQRScreens::chosenSetsKeepTheirOrder()
{
    SetChoiceModel model({numbered(u"3"_s), numbered(u"2"_s), numbered(u"1"_s)});
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QVERIFY(model.allSelected());
    model.setAllSelected(false);
    QCOMPARE(model.selectedCount(), 0);
    for (const int row : {2, 0})
        QVERIFY(model.setData(model.index(row), Qt::Checked, Qt::CheckStateRole));
    QCOMPARE(numbersOf(model.selectedSets()), QStringList({u"3"_s, u"1"_s}));
    QVERIFY(!model.allSelected());
    QVERIFY(!SetChoiceModel({}).allSelected());
}

void TestQRScreens::exportIsChosenByKeyAndMouse()
{
    UiFixture fixture;
    QWidget window;
    window.resize(1000, 700);
    window.show();
    BulkQRExportSheet sheet(fixture.ui, {numbered(u"1"_s), numbered(u"2"_s)}, u"Ibiza"_s, &window);
    sheet.open();
    QVERIFY(QTest::qWaitForWindowActive(&sheet));
    QCOMPARE(sheet.size(), QSize(480, 560));
    const auto& count = find<QLabel>(sheet, u"selectedCount"_s);
    const auto& toggle = button(sheet, u"toggleAll"_s);
    const auto& exporting = button(sheet, u"exportPDF"_s);
    QCOMPARE(count.text(), u"2/2 geselecteerd"_s);
    QCOMPARE(toggle.text(), u"Deselecteer alles"_s);

    auto& list = find<SetChoiceList>(sheet, u"setChoice"_s);
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Space);
    QCOMPARE(count.text(), u"1/2 geselecteerd"_s);
    QCOMPARE(toggle.text(), u"Selecteer alles"_s);
    QVERIFY(exporting.isEnabled());
    const QPoint second = list.visualRect(list.model()->index(1, 0)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second);
    QCOMPARE(count.text(), u"0/2 geselecteerd"_s);
    QVERIFY(!exporting.isEnabled());
    QVERIFY(!exporting.toolTip().isEmpty());
    button(sheet, u"toggleAll"_s).click();
    QCOMPARE(count.text(), u"2/2 geselecteerd"_s);

    QTest::keyClick(&sheet, Qt::Key_Return, Qt::ControlModifier);  // and the dialog is cancelled
    QCOMPARE(fixture.dialogs.asked.constFirst(), u"Ibiza-QR-kaarten.pdf"_s);
    QVERIFY(sheet.isVisible() && exporting.isEnabled());
}

void TestQRScreens::exportWritesAndCloses()
{
    UiFixture fixture;
    QWidget window;
    window.show();
    BulkQRExportSheet sheet(fixture.ui, {numbered(u"1"_s)}, u"Ibiza"_s, &window);
    sheet.open();
    fixture.dialogs.saved = fixture.data.filePath(u"missing/x.pdf"_s);
    button(sheet, u"exportPDF"_s).click();
    sheet.reject();
    QVERIFY(sheet.isVisible());  // until the result is known
    QTRY_VERIFY(says(sheet, u"“x.pdf” kon niet bewaard worden"_s));
    QVERIFY(sheet.isVisible() && button(sheet, u"exportPDF"_s).isEnabled());
    fixture.dialogs.saved = fixture.data.filePath(u"x.pdf"_s);
    button(sheet, u"exportPDF"_s).click();
    QTRY_VERIFY(!sheet.isVisible());
    const auto isPdf = [&fixture] {
        QFile file(fixture.dialogs.saved);
        return file.open(QFile::ReadOnly) && file.readAll().trimmed().endsWith("%%EOF");
    };
    QVERIFY(isPdf());

    // The application quits meanwhile.
    fixture.dialogs.saved = fixture.data.filePath(u"y.pdf"_s);
    {
        const BulkQRExportSheet going(fixture.ui, QList<SetData>(50, numbered(u"1"_s)), u"Ibiza"_s, &window);
        button(going, u"exportPDF"_s).click();
    }
    QVERIFY(QThreadPool::globalInstance()->waitForDone(30'000));
    QCoreApplication::processEvents();
    QVERIFY(isPdf());
}

MORVAK_TEST(TestQRScreens);
#include "test_qr_screens.moc"
