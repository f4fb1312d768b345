// How long the Sets tab takes to open with a great many sets, to follow each key of a search, and to follow a
// tagged photo, painting included. Machines are noisy: compare with the figures of a small shoot from the
// same run, and see the time of the processor where other programs are busy.
//
//   bench_set_list [sets=2000] [runs=9]

#include "catalog/ProductCatalog.h"
#include "rename/RawRenameService.h"
#include "store/ShootManager.h"
#include "support/FigureTable.h"
#include "ui/base/DesktopDialogs.h"
#include "ui/base/UiServices.h"
#include "ui/base/theme/Theme.h"
#include "ui/sets/SetsView.h"
#include "update/UpdateChecker.h"
#include "watch/FolderWatcher.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QHash>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QScrollBar>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <vector>

using namespace morvak;
using namespace Qt::StringLiterals;

namespace {

constexpr int fewSets = 10;

/// Time on the wall, and of the processor, which other programs do not lengthen.
class Milliseconds {
public:
    void start()
    {
        m_processor = std::clock();
        m_wall.start();
    }
    void stop()
    {
        m_walls.push_back(double(m_wall.nsecsElapsed()) / 1e6);
        m_processors.push_back(1e3 * double(std::clock() - m_processor) / CLOCKS_PER_SEC);
    }

    void report(const char* what, qsizetype sets)
    {
        std::sort(m_walls.begin(), m_walls.end());
        std::sort(m_processors.begin(), m_processors.end());
        const std::size_t middle = m_walls.size() / 2;
        std::printf(
            "%5lld sets, %-20s ms: median %6.2f, worst %6.2f; of the processor %6.2f, %6.2f (%zu times)\n",
            static_cast<long long>(sets), what, m_walls[middle], m_walls.back(), m_processors[middle],
            m_processors.back(), m_walls.size());
        const double median = m_walls[middle];
        if (sets == fewSets)
            s_few.insert(QLatin1String(what), median);
        else
            addToTable(QLatin1String(what), median, sets);
    }

private:
    void addToTable(const QString& what, double median, qsizetype sets) const
    {
        const auto told = [](double ms) { return u"%1 ms"_s.arg(ms, 0, 'f', 1); };
        const double few = s_few.value(what);
        bench::addFigure(
            u"Sets tab with %1 sets, %2: median (worst: %3)"_s.arg(sets).arg(what, told(m_walls.back())),
            told(median), bench::Comparison{u"with %1 sets"_s.arg(fewSets), told(few), median / few});
    }

    static inline QHash<QString, double> s_few;  // medians, by what was measured
    QElapsedTimer m_wall;
    std::clock_t m_processor = 0;
    std::vector<double> m_walls;
    std::vector<double> m_processors;
};

SetData numbered(int number)
{
    static const QStringList brands{u"Noord"_s, u"Velora"_s, u"Atelier Lindgren & Zonen"_s, u"Orva"_s};
    static const QStringList items{u"Overshirt"_s, u"Chino"_s, u"Gebreide trui"_s, u"Jas"_s, u"Rok"_s};
    SetData set;
    set.setNumber = QString::number(number);
    set.brand = brands[number % brands.size()];
    set.model = number % 3 == 0 ? u"Anna"_s : u"Joël"_s;
    for (int i = 0; i < 2 + number % 4; ++i) {
        SetItem item;
        item.name = items[(number + i) % items.size()];
        item.color = u"navy"_s;
        set.items.append(item);
    }
    set.taggedCount = number % 50;
    return set;
}

/// A shoot file's worth of sets, without a file for each.
void fill(ShootManager& shoots, int count)
{
    QString csv = u"Set;Merk;Items;Model;Locatie\n"_s;
    for (int number = 1; number <= count; ++number) {
        const SetData set = numbered(number);
        QStringList items;
        for (const SetItem& item : set.items)
            items.append(item.joined(u'/'));
        csv +=
            QStringList({set.setNumber, set.brand, items.join(u", "_s), set.model, u"Studio"_s}).join(u';') +
            u'\n';
    }
    shoots.createShoot(u"Ibiza Zomer 2026"_s, {}, {});
    if (shoots.importCSV(csv, *shoots.activeShootId()) != count)
        std::exit(1);
}

/// Layout, and every pixel of the tab, now.
void paint(QWidget& tab)
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    tab.repaint();
}

void measureOpening(UiServices& services, int runs, qsizetype sets)
{
    Milliseconds opening;
    for (int run = 0; run < runs; ++run) {
        opening.start();
        SetsView tab(services);
        tab.resize(1000, 560);
        tab.show();
        paint(tab);
        opening.stop();
    }
    opening.report("opening the tab", sets);
}

void type(QWidget& field, Qt::Key key, const QString& text)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&field, &press);
}

/// Every key of each search, and then its removal key by key: a list that grows is the harder one.
void measureSearching(UiServices& services, int runs, qsizetype sets)
{
    SetsView tab(services);
    tab.resize(1000, 560);
    tab.show();
    paint(tab);
    auto& field = *tab.findChild<QLineEdit*>(u"searchField"_s);
    Milliseconds keys;
    const auto press = [&](Qt::Key key, const QString& text) {
        keys.start();
        type(field, key, text);
        paint(tab);
        keys.stop();
    };
    for (int run = 0; run < runs; ++run) {
        for (const QString& search : {u"velora"_s, u"anna"_s, u"overshirt"_s, u"19"_s, u"zzz"_s}) {
            for (const QChar c : search)
                press(Qt::Key_unknown, c);
            for (qsizetype i = 0; i < search.size(); ++i)
                press(Qt::Key_Backspace, {});
        }
    }
    keys.report("a key of a search", sets);
}

void measureTagging(UiServices& services, int photos, qsizetype sets)
{
    SetsView tab(services);
    tab.resize(1000, 560);
    tab.show();
    paint(tab);
    const QUuid set = services.shoots.activeShoot()->sets.constFirst().id;
    Milliseconds tagging;
    for (int photo = 0; photo < photos; ++photo) {
        tagging.start();
        services.shoots.incrementTagCount(set);
        QCoreApplication::processEvents();
        tagging.stop();
    }
    tagging.report("a tagged photo", sets);
}

void measureScrolling(UiServices& services, qsizetype sets)
{
    SetsView tab(services);
    tab.resize(1000, 560);
    tab.show();
    paint(tab);
    auto& bar = *tab.findChild<QListView*>(u"setList"_s)->verticalScrollBar();
    Milliseconds scrolling;
    constexpr int steps = 100;
    for (int step = 0; step < steps; ++step) {
        scrolling.start();
        bar.setValue(bar.maximum() * step / steps);
        paint(tab);
        scrolling.stop();
    }
    scrolling.report("a step of scrolling", sets);
}

}  // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const int many = argc > 1 ? std::atoi(argv[1]) : 2000;
    const int runs = argc > 2 ? std::atoi(argv[2]) : 9;

    const QTemporaryDir folder;
    FolderWatcher watcher(WatcherServices{});
    ProductCatalog catalog(folder.filePath(u"catalog.json"_s));
    Theme theme;
    DesktopDialogs dialogs;
    UpdateConfig updateConfig;
    updateConfig.preferencesPath = folder.filePath(u"preferences"_s);
    UpdateChecker updates(updateConfig);
    for (const int count : {fewSets, many}) {
        ShootManager shoots(folder.filePath(u"%1/shoots.json"_s.arg(count)));
        fill(shoots, count);
        const RawRenameService rename({});
        UiServices services{.shoots = shoots,
                            .watcher = watcher,
                            .catalog = catalog,
                            .updates = updates,
                            .theme = theme,
                            .dialogs = dialogs,
                            .version = u"0"_s,
                            .startTool = [] {},
                            .stopTool = [] {},
                            .rename = rename,
                            .openInBrowser = [](const QUrl&) {}};
        measureOpening(services, runs, count);
        measureSearching(services, runs, count);
        measureTagging(services, 20 * runs, count);
        measureScrolling(services, count);
    }
    return 0;
}
