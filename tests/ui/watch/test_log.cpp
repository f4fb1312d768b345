#include "support/TestMain.h"
#include "support/UiFixture.h"
#include "ui/watch/LogList.h"
#include "ui/watch/LogModel.h"
#include "ui/watch/LogTab.h"
#include "ui/watch/LogText.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QGuiApplication>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace morvak;
using morvak::test::shownTexts;
using morvak::test::UiFixture;

namespace {

class Log : public UiFixture {
public:
    void add(int count, const QString& text = u"regel"_s)
    {
        for (int i = 0; i < count; ++i)
            watcher->addLog(u"%1 %2"_s.arg(text).arg(++m_lines), LogType::info);
        QCoreApplication::processEvents();
    }

private:
    int m_lines = 0;
};

QStringList messages(const QAbstractItemModel& model)
{
    QStringList lines;
    for (int row = 0; row < model.rowCount(); ++row)
        lines.prepend(model.index(row, 0).data().toString());
    return lines;
}

}  // namespace

class TestLog : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void modelFollowsTheLogByRows();
    void listStaysWhereItWasScrolledTo();
    void selectedRowsAreCopied();
    void clearedLogShowsTheEmptyState();
    void longMessageTakesMoreLines();
    void symbols_data();
    void symbols();
    void newestFailureCounts();
};

void TestLog::modelFollowsTheLogByRows()
{
    Log log;
    log.add(3);
    LogModel model(*log.watcher);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    QSignalSpy inserts(&model, &QAbstractItemModel::rowsInserted);
    const QPersistentModelIndex newest(model.index(0, 0));
    log.add(60);
    QTRY_COMPARE(model.rowCount(), 63);
    QCOMPARE(inserts.size(), 1);
    QCOMPARE(newest.row(), 60);
    QCOMPARE(newest.data().toString(), u"regel 3"_s);
    log.add(150);
    QTRY_COMPARE(messages(model), log.logLines());
    QCOMPARE(model.rowCount(), 200);
    QVERIFY(!newest.isValid());
    log.add(200);  // nothing of what was there is left
    QTRY_COMPARE(messages(model), log.logLines());
    log.watcher->clearLog();
    log.add(2);
    QTRY_COMPARE(messages(model), log.logLines());
    QCOMPARE(model.rowCount(), 2);
    log.watcher->clearLog();
    QTRY_COMPARE(model.rowCount(), 0);
    QVERIFY(resets.isEmpty());
}

void TestLog::listStaysWhereItWasScrolledTo()
{
    Log log;
    log.add(100);
    LogModel model(*log.watcher);
    LogList list(log.theme, model);
    list.resize(400, 300);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    log.add(5, u"een lange regel, die over meer dan een regel van de lijst loopt, en nog verder"_s);
    QTRY_COMPARE(model.rowCount(), 105);
    QTRY_COMPARE(list.indexAt({20, 10}), model.index(0, 0));

    list.verticalScrollBar()->setValue(437);
    const QPersistentModelIndex watched(list.indexAt({20, 150}));
    const QRect place = list.visualRect(watched);
    for (int i = 0; i < 3; ++i) {
        const int rows = model.rowCount();
        log.add(7, u"een lange regel, die over meer dan een regel van de lijst loopt, en nog verder"_s);
        QTRY_COMPARE(model.rowCount(), rows + 7);
        QCOMPARE(list.visualRect(watched), place);
    }
}

void TestLog::selectedRowsAreCopied()
{
    Log log;
    log.add(4);
    LogTab tab(log.ui);
    tab.show();
    auto* const list = tab.findChild<LogList*>();
    list->setFocus();
    const QModelIndex second = list->model()->index(1, 0);
    list->setCurrentIndex(second);
    QTest::keyClick(list, Qt::Key_Down, Qt::ShiftModifier);
    QTRY_VERIFY(list->hasFocus());
    QTest::keyClick(list, Qt::Key_C, Qt::ControlModifier);
    const QList<LogEntry>& entries = log.watcher->log();
    QTRY_COMPARE(QGuiApplication::clipboard()->text(),
                 logLine(entries.at(1)) + u'\n' + logLine(entries.at(2)));
    QVERIFY(logLine(entries.at(1)).startsWith(entries.at(1).time.toString(u"HH:mm:ss"_s)));
}

void TestLog::clearedLogShowsTheEmptyState()
{
    Log log;
    log.add(2);
    LogTab tab(log.ui);
    tab.show();
    QVERIFY(shownTexts(tab).contains(u"Activiteitenlog"_s));
    auto* const clear = tab.findChild<QPushButton*>(u"clearLog"_s);
    QCOMPARE(clear->text(), u"Wis log"_s);
    QVERIFY(tab.findChild<LogList*>()->isVisible());
    clear->click();
    QVERIFY(log.watcher->log().isEmpty());
    QTRY_VERIFY(shownTexts(tab).contains(u"Nog geen activiteit"_s));
    QVERIFY(!clear->isEnabled());
    log.add(1);
    QTRY_VERIFY(tab.findChild<LogList*>()->isVisible());
}

void TestLog::longMessageTakesMoreLines()
{
    Log log;
    log.watcher->addLog(u"/"_s + u"map"_s.repeated(200), LogType::info);
    log.add(1);
    LogModel model(*log.watcher);
    LogList list(log.theme, model);
    const auto height = [&](int row) { return list.visualRect(model.index(row, 0)).height(); };
    list.resize(400, 300);
    list.show();
    QTRY_VERIFY(height(0) > 0);
    QVERIFY(height(1) > 3 * height(0));
    const int narrow = height(1);
    list.resize(800, 300);
    QTRY_VERIFY(height(1) < narrow);
}

void TestLog::symbols_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("withoutSymbol");
    QTest::addColumn<int>("emoji");
    QTest::newRow("check mark") << "✅ Getagd: a.jpg"
                                << "Getagd: a.jpg" << 1;
    QTest::newRow("with a selector") << "⚠️ Geen actieve set"
                                     << "Geen actieve set" << 1;
    QTest::newRow("letter with a selector") << "ℹ️ a.3FR niet getagd"
                                            << "a.3FR niet getagd" << 1;
    QTest::newRow("beyond the first plane") << "🗑️ QR-kaart 📷"
                                            << "QR-kaart 📷" << 2;
    QTest::newRow("joined") << "👩‍💻 x"
                            << "x" << 1;
    QTest::newRow("none") << "Nieuw bestand: 12 → #1 ✓©.jpg"
                          << "Nieuw bestand: 12 → #1 ✓©.jpg" << 0;
    QTest::newRow("not at the start") << "Watching: /📷"
                                      << "Watching: /📷" << 1;
}

void TestLog::symbols()
{
    QFETCH(QString, message);
    QTEST(withoutSymbol(message), "withoutSymbol");
    const auto formats = emojiFormats(message, QFont());
    QTEST(int(formats.size()), "emoji");
    for (const auto& format : formats)
        QVERIFY(format.format.font().families().constFirst().contains(u"Emoji"_s));
}

void TestLog::newestFailureCounts()
{
    const auto entry = [](const QString& message, LogType type) { return LogEntry{{}, {}, message, type}; };
    QVERIFY(!newestFailure({}));
    QVERIFY(!newestFailure({entry(u"a"_s, LogType::info), entry(u"b"_s, LogType::success)}));
    const QList<LogEntry> log{entry(u"a"_s, LogType::success), entry(u"b"_s, LogType::warning),
                              entry(u"c"_s, LogType::error)};
    QCOMPARE(newestFailure(log)->message, u"b"_s);
    QCOMPARE(newestFailure(log.sliced(2))->message, u"c"_s);
}

MORVAK_TEST(TestLog);
#include "test_log.moc"
