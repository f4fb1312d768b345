#include "BenchShoot.h"
#include "FolderMeter.h"
#include "ProcessFigures.h"
#include "Sections.h"
#include "TimedRun.h"
#include "support/FigureTable.h"

#include <cstdio>

namespace morvak::bench {

bool measureManyPhotos(const BenchOptions& options)
{
    const BenchShoot shoot = BenchShoot::small(options.small);
    TimedRun run(options.program, std::chrono::minutes(10));
    run.activateSet();
    const FolderMeter meter(run.folder().path(), shoot.names());
    const double before = static_cast<double>(peakMemory(run.processId())) / 1e6;
    const auto start = Clock::now();
    shoot.drop(run.folder());
    const bool all = run.pacer().waitUntil([&meter] { return meter.sawAll(); });
    const std::chrono::duration<double> time = Clock::now() - start;
    const double memory = static_cast<double>(peakMemory(run.processId())) / 1e6;
    const qsizetype tagged = countTagged(run.folder(), shoot.names());
    std::printf("many: %lld photos of %.0f kB dropped at once\n", qlonglong{options.small},
                static_cast<double>(shoot.bytes(0).size()) / 1e3);
    std::printf("  %s %.1f s   tagged right %lld/%lld   peak memory of morvak %.0f MB\n",
                all ? "all in" : "given up after", time.count(), qlonglong{tagged}, qlonglong{options.small},
                memory);
    const auto told = [](double megabytes) { return QStringLiteral("%1 MB").arg(megabytes, 0, 'f', 0); };
    addFigure(QStringLiteral("Memory, at most, while %1 photos arrive at once").arg(options.small),
              told(memory),
              Comparison{QStringLiteral("itself before the first photo"), told(before), memory / before});
    return tagged == options.small;
}

}  // namespace morvak::bench
