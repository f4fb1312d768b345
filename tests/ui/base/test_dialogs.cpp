#include "support/TestMain.h"
#include "ui/base/DesktopDialogs.h"

#include <QApplication>
#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace morvak;

namespace {

/// Asks, presses a key in the question as soon as it is there, and gives the answer.
bool answerTo(QWidget& window, Qt::Key key, QString* defaultLabel = nullptr)
{
    QTimer press;
    QObject::connect(&press, &QTimer::timeout, &window, [&] {
        QWidget* const question = QApplication::activeModalWidget();
        if (!question)
            return;
        press.stop();
        for (const QPushButton* const button : question->findChildren<QPushButton*>()) {
            if (button->isDefault() && defaultLabel)
                *defaultLabel = button->text();
        }
        QTest::keyClick(question, key);
    });
    press.start(1);
    DesktopDialogs dialogs;
    return dialogs.confirm(&window, u"Set \"<b>7</b>\" verwijderen?"_s, u"Weg is weg."_s, u"Verwijderen"_s);
}

}  // namespace

class TestDialogs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void extensionIsAddedOnce_data();
    void extensionIsAddedOnce();
    void proposedNameIsNoPath();
    void destructionIsNeverTheDefault();
};

void TestDialogs::extensionIsAddedOnce_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("path");
    QTest::newRow("missing") << "/a/Ibiza"
                             << "/a/Ibiza.morvak";
    QTest::newRow("there") << "/a/Ibiza.morvak"
                           << "/a/Ibiza.morvak";
    QTest::newRow("in capitals") << "/a/Ibiza.MORVAK"
                                 << "/a/Ibiza.MORVAK";
    QTest::newRow("a dot in the name") << "/a/Studio v1.2"
                                       << "/a/Studio v1.2.morvak";
    QTest::newRow("another extension") << "/a/Ibiza.csv"
                                       << "/a/Ibiza.csv.morvak";
    QTest::newRow("the extension as name") << "/a/morvak"
                                           << "/a/morvak.morvak";
}

void TestDialogs::extensionIsAddedOnce()
{
    QFETCH(QString, typed);
    QTEST(withExtension(typed, u"morvak"_s), "path");
}

void TestDialogs::proposedNameIsNoPath()
{
    QCOMPARE(asFileName(u"voor/na.csv"_s), u"voor-na.csv"_s);
}

void TestDialogs::destructionIsNeverTheDefault()
{
    QWidget window;
    window.show();
    QString defaultLabel;
    QVERIFY(!answerTo(window, Qt::Key_Return, &defaultLabel));
    QCOMPARE(defaultLabel, u"Annuleer"_s);
    QVERIFY(!answerTo(window, Qt::Key_Escape));
}

MORVAK_TEST(TestDialogs);
#include "test_dialogs.moc"
