#include "BenchShoot.h"
#include "FolderMeter.h"
#include "MorvakRun.h"
#include "ProcessFigures.h"
#include "Sections.h"

#include <cstdio>

namespace morvak::bench {

bool measureManyPhotos(const BenchOptions& options)
{
    const BenchShoot shoot = BenchShoot::small(options.small);
    MorvakRun run(options.program, std::chrono::minutes(10));
    run.activateSet();
    const FolderMeter meter(run.folder().path(), shoot.names());
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
    return tagged == options.small;
}

}  // namespace morvak::bench
