#include "BenchShoot.h"
#include "FolderMeter.h"
#include "ProcessFigures.h"
#include "Sections.h"
#include "TimedRun.h"
#include "support/FigureTable.h"

#include <cstdio>

namespace morvak::bench {

bool measureIdle(const BenchOptions& options)
{
    using namespace std::chrono_literals;
    constexpr std::chrono::seconds quiet = 10s;
    const BenchShoot shoot = BenchShoot::small(3);
    TimedRun run(options.program, 2min);
    run.activateSet();
    const FolderMeter meter(run.folder().path(), shoot.names());
    shoot.drop(run.folder());
    (void)run.pacer().waitUntil([&meter] { return meter.sawAll(); }, 30s);
    (void)run.pacer().pause(3s);  // echoes and the banner of the set are over

    const auto timeBefore = processorTime(run.processId());
    const qint64 wokenBefore = wakeUps(run.processId());
    (void)run.pacer().pause(quiet);
    const auto time = processorTime(run.processId()) - timeBefore;
    const qint64 woken = wakeUps(run.processId()) - wokenBefore;
    std::printf("idle: %lld s after tagging, with its children\n", qlonglong{quiet.count()});
    std::printf("  processor time %lld ms   wake-ups %lld\n", qlonglong{time.count()}, qlonglong{woken});
    addFigure(QStringLiteral("Idle for %1 s, with its children").arg(quiet.count()),
              QStringLiteral("%1 ms of processor, %2 wake-ups").arg(time.count()).arg(woken));
    return countTagged(run.folder(), shoot.names()) == shoot.names().size();
}

}  // namespace morvak::bench
