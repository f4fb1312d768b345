#include "FolderMeter.h"
#include "Sections.h"
#include "TimedRun.h"
#include "metadata/ToolLookup.h"
#include "support/FigureTable.h"

#include <QProcess>

#include <algorithm>
#include <array>
#include <cstdio>

namespace morvak::bench {

namespace {

constexpr int runs = 5;

/// In milliseconds, in order.
template <typename Run>
std::array<qint64, runs> timesOf(const Run& run)
{
    std::array<qint64, runs> times{};
    for (qint64& time : times)
        time = run();
    std::ranges::sort(times);
    return times;
}

qint64 startOfTool()
{
    const auto start = Clock::now();
    if (QProcess::execute(findExifTool(QString()), {QStringLiteral("-ver")}) != 0)
        qFatal("exiftool does not start");
    return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count();
}

}  // namespace

bool measureStart(const BenchOptions& options)
{
    const auto times = timesOf([&options] {
        return qint64(TimedRun(options.program, std::chrono::seconds(30)).startTime().count());
    });
    const qint64 tool = timesOf(startOfTool)[runs / 2];
    std::printf(
        "start: from exec to watching, five runs\n  median %lld ms   shortest %lld ms   longest %lld ms\n",
        qlonglong{times[2]}, qlonglong{times[0]}, qlonglong{times[4]});
    addFigure(QStringLiteral("Start, to watching"), QStringLiteral("%1 ms").arg(times[runs / 2]),
              Comparison{QStringLiteral("the bare tool's start"), QStringLiteral("%1 ms").arg(tool),
                         double(times[runs / 2]) / double(tool)});
    return true;
}

}  // namespace morvak::bench
