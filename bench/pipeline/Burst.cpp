#include "BareWrites.h"
#include "FolderMeter.h"
#include "Sections.h"
#include "ShellLoop.h"
#include "TimedRun.h"
#include "support/FigureTable.h"

#include <QTemporaryDir>

#include <cstdio>

namespace morvak::bench {

namespace {

using Seconds = std::chrono::duration<double>;

constexpr std::chrono::minutes limit(10);

struct Result {
    Seconds time{0};
    qsizetype tagged = 0;
};

/// Drops the photos before somebody who watches; the time goes from the first byte written to the last photo
/// tagged.
Result dropAndWait(const BenchShoot& shoot, const QDir& folder, driver::Pacer& pacer)
{
    const FolderMeter meter(folder.path(), shoot.names());
    const auto start = Clock::now();
    shoot.drop(folder);
    if (!pacer.waitUntil([&meter] { return meter.sawAll(); }))
        return {limit, countTagged(folder, shoot.names())};
    return {meter.lastTagged() - start, countTagged(folder, shoot.names())};
}

Result bareWrites(const BenchShoot& shoot)
{
    const QTemporaryDir root;
    const QDir folder(root.path());
    shoot.drop(folder);
    const Seconds time = timeBareWrites(folder, shoot.names());
    return {time, countTagged(folder, shoot.names())};
}

Result morvakRun(const BenchShoot& shoot, const QString& program)
{
    TimedRun run(program, limit);
    run.activateSet();
    return dropAndWait(shoot, run.folder(), run.pacer());
}

Result shellLoop(const BenchShoot& shoot)
{
    const QTemporaryDir root;
    const ShellLoop loop{QDir(root.path())};
    driver::Pacer pacer(limit);
    return dropAndWait(shoot, QDir(root.path()), pacer);
}

void print(const char* who, const Result& result, const BenchShoot& shoot)
{
    std::printf("  %-12s %7.2f s   tagged right %lld/%lld\n", who, result.time.count(),
                qlonglong{result.tagged}, qlonglong{shoot.names().size()});
    std::fflush(stdout);
}

void addToTable(const QString& subject, const Result& morvak, const QString& rival, const Result& other)
{
    const auto told = [](const Result& result) {
        return QStringLiteral("%1 s").arg(result.time.count(), 0, 'f', 1);
    };
    addFigure(subject, told(morvak), Comparison{rival, told(other), morvak.time / other.time});
}

/// The contenders in turn, on photos of `kinds`.
bool compare(const BenchOptions& options, const BenchShoot& shoot, const char* kinds)
{
    std::printf("burst: %lld photos of %.1f MB dropped at once (%s)\n", qlonglong{options.photos},
                static_cast<double>(options.size) / 1e6, kinds);
    const Result bare = bareWrites(shoot);
    print("bare writes", bare, shoot);
    const Result morvak = morvakRun(shoot, options.program);
    print("morvak", morvak, shoot);
    std::printf("  morvak takes %.2f times the bare writes\n", morvak.time / bare.time);
    const QString subject = QStringLiteral("Burst: %1 photos of %2 MB (%3)")
                                .arg(options.photos)
                                .arg(options.size / 1'000'000)
                                .arg(QString::fromLatin1(kinds));
    addToTable(subject, morvak, QStringLiteral("one bare stay-open tool"), bare);
    bool right = bare.tagged == options.photos && morvak.tagged == options.photos;
    if (options.shellLoop) {
        const Result shell = shellLoop(shoot);
        print("shell loop", shell, shoot);
        addToTable(subject, morvak, QStringLiteral("the shell loop"), shell);
        std::printf("  morvak is %.2f times as fast as the shell loop\n", shell.time / morvak.time);
        right = right && shell.tagged == options.photos;
    }
    return right;
}

}  // namespace

bool measureBurst(const BenchOptions& options)
{
    return compare(options, BenchShoot::mixed(options.photos, options.size), "JPEG, NEF, DNG in turn");
}

bool measureNefBurst(const BenchOptions& options)
{
    return compare(options, BenchShoot::nef(options.photos, options.size), "NEF only");
}

}  // namespace morvak::bench
