#include "support/TestMain.h"
#include "ui/base/blocks/SheetFrame.h"
#include "ui/base/theme/Theme.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;
using namespace morvak;

namespace {

constexpr int windowFrame = 8;  // what a window manager may add around a window, at most

/// A sheet with a name, a text and both buttons over a window of 800 x 600.
struct OpenSheet {
    OpenSheet()
    {
        window.resize(800, 600);
        window.show();
        sheet = std::make_unique<SheetFrame>(u"Nieuwe Set"_s, &window);
        sheet->content()->addWidget(new QLabel(u"Uitleg"_s));
        sheet->content()->addWidget(name = new QLineEdit);
        sheet->content()->addWidget(text = new QPlainTextEdit);
        primary = sheet->setPrimaryButton(u"Toevoegen"_s);
        cancel = sheet->setCancelButton(u"Annuleer"_s);
    }
    void open()
    {
        sheet->open();
        sheet->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(sheet.get()));
    }

    Theme theme;
    QWidget window;
    std::unique_ptr<SheetFrame> sheet;
    QLineEdit* name = nullptr;
    QPlainTextEdit* text = nullptr;
    QPushButton* primary = nullptr;
    QPushButton* cancel = nullptr;
};

}  // namespace

class TestSheetFrame : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void opensOnItsFirstFieldInTheMiddleOfTheWindow();
    void keysPressTheRightButton_data();
    void keysPressTheRightButton();
    void disabledPrimaryButtonIsNotPressedByKeys();
    void primaryButtonStandsRightMost();
    void growsWithItsContentAndThenScrolls();
};

void TestSheetFrame::opensOnItsFirstFieldInTheMiddleOfTheWindow()
{
    OpenSheet open;
    open.open();
    QCOMPARE(open.sheet->focusWidget(), open.name);
    QCOMPARE(open.sheet->windowModality(), Qt::WindowModal);
    const QPoint offset = open.sheet->geometry().center() - open.window.geometry().center();
    QVERIFY2(offset.manhattanLength() <= windowFrame,
             qPrintable(u"off by %1, %2"_s.arg(offset.x()).arg(offset.y())));
}

void TestSheetFrame::keysPressTheRightButton_data()
{
    QTest::addColumn<bool>("inText");
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifier>("modifier");
    QTest::addColumn<int>("accepted");
    QTest::addColumn<int>("rejected");
    QTest::newRow("Return in a field") << false << int(Qt::Key_Return) << Qt::NoModifier << 1 << 0;
    QTest::newRow("Return in a text") << true << int(Qt::Key_Return) << Qt::NoModifier << 0 << 0;
    QTest::newRow("Ctrl+Return in a field") << false << int(Qt::Key_Return) << Qt::ControlModifier << 1 << 0;
    QTest::newRow("Ctrl+Return in a text") << true << int(Qt::Key_Return) << Qt::ControlModifier << 1 << 0;
    QTest::newRow("Ctrl+Enter in a text") << true << int(Qt::Key_Enter) << Qt::ControlModifier << 1 << 0;
    QTest::newRow("Esc in a text") << true << int(Qt::Key_Escape) << Qt::NoModifier << 0 << 1;
}

void TestSheetFrame::keysPressTheRightButton()
{
    QFETCH(bool, inText);
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifier, modifier);
    OpenSheet open;
    open.open();
    QSignalSpy accepted(open.sheet.get(), &QDialog::accepted);
    QSignalSpy rejected(open.sheet.get(), &QDialog::rejected);
    QWidget* const field = inText ? static_cast<QWidget*>(open.text) : open.name;
    field->setFocus();
    QTest::keyClick(field, static_cast<Qt::Key>(key), modifier);
    QTEST(int(accepted.size()), "accepted");
    QTEST(int(rejected.size()), "rejected");
}

void TestSheetFrame::disabledPrimaryButtonIsNotPressedByKeys()
{
    OpenSheet open;
    open.primary->setEnabled(false);
    open.open();
    QTest::keyClick(open.name, Qt::Key_Return);
    QTest::keyClick(open.name, Qt::Key_Return, Qt::ControlModifier);
    QVERIFY(open.sheet->isVisible());
}

void TestSheetFrame::primaryButtonStandsRightMost()
{
    OpenSheet open;
    QPushButton* const side = open.sheet->addSideButton(u"+ Item"_s);
    open.open();
    QVERIFY(side->x() < open.cancel->x());
    QVERIFY(open.cancel->x() < open.primary->x());
}

void TestSheetFrame::growsWithItsContentAndThenScrolls()
{
    OpenSheet open;
    open.open();
    const int before = open.sheet->height();
    open.sheet->content()->addWidget(new QLineEdit);
    QTRY_VERIFY(open.sheet->height() > before);
    for (int i = 0; i < 30; ++i)
        open.sheet->content()->addWidget(new QLineEdit);
    QTRY_VERIFY(open.sheet->height() > open.window.height() - 40);
    QVERIFY(open.sheet->height() <= open.window.height());
    QTRY_VERIFY2(open.primary->mapTo(open.sheet.get(), QPoint()).y() < open.sheet->height(),
                 "the buttons stay in sight");
}

MORVAK_TEST(TestSheetFrame);
#include "test_sheet_frame.moc"
