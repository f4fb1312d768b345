#include "BareWrites.h"
#include "BenchShoot.h"
#include "FolderMeter.h"
#include "Sections.h"
#include "TimedRun.h"
#include "support/FigureTable.h"

#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace morvak::bench {

namespace {

double secondsOfBareWrite(const BenchShoot& shoot)
{
    const QTemporaryDir root;
    const QDir folder(root.path());
    shoot.drop(folder);
    return timeBareWrites(folder, shoot.names()).count() / double(shoot.names().size());
}

}  // namespace

bool measureLatency(const BenchOptions& options)
{
    using namespace std::chrono_literals;
    const BenchShoot shoot = BenchShoot::mixed(options.shots, options.size);
    TimedRun run(options.program, 5min);
    run.activateSet();
    const FolderMeter meter(run.folder().path(), shoot.names());
    QHash<QString, Clock::time_point> written;
    auto next = Clock::now();
    for (qsizetype i = 0; i < options.shots; ++i) {
        (void)run.pacer().pause(std::chrono::ceil<std::chrono::milliseconds>(next - Clock::now()));
        shoot.write(run.folder(), i);
        written.insert(shoot.names().at(i), Clock::now());
        next += 500ms;
    }
    (void)run.pacer().waitUntil([&meter] { return meter.sawAll(); }, 30s);

    std::vector<double> latencies;
    for (auto photo = meter.tagged().cbegin(); photo != meter.tagged().cend(); ++photo)
        latencies.push_back(
            std::chrono::duration<double>(photo.value() - written.value(photo.key())).count());
    std::ranges::sort(latencies);
    const qsizetype tagged = countTagged(run.folder(), shoot.names());
    const auto part = [&](double fraction) {
        return latencies.empty()
                   ? 0
                   : latencies.at(static_cast<size_t>(fraction * static_cast<double>(latencies.size() - 1)));
    };
    std::printf("latency: %lld photos of %.1f MB, two a second, from last byte to tagged\n",
                qlonglong{options.shots}, static_cast<double>(options.size) / 1e6);
    std::printf("  median %.2f s   95 %% %.2f s   longest %.2f s   tagged right %lld/%lld\n", part(0.5),
                part(0.95), part(1.0), qlonglong{tagged}, qlonglong{options.shots});
    const double bare = secondsOfBareWrite(shoot);
    std::printf("  a bare write takes %.2f s\n", bare);
    addFigure(QStringLiteral("Latency of %1 photos of %2 MB, two a second: median (95 %: %3 s)")
                  .arg(options.shots)
                  .arg(options.size / 1'000'000)
                  .arg(part(0.95), 0, 'f', 2),
              QStringLiteral("%1 s").arg(part(0.5), 0, 'f', 2),
              Comparison{QStringLiteral("one write by the bare tool"),
                         QStringLiteral("%1 s").arg(bare, 0, 'f', 2), part(0.5) / bare});
    return tagged == options.shots;
}

}  // namespace morvak::bench
