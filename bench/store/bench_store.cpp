// What the shoot store costs with 50 shoots of 200 sets, three items a set and every set activated twice.
// "save" is a whole saving operation, the wait for the disk included; "bareWrite" writes and syncs the same
// bytes with nothing else, so that save / bareWrite tells what Morvak adds on the machine at hand, and decode
// / bareParse likewise. "importRows" takes 10,000 CSV rows of three items into an empty shoot and saves once;
// "rowsOnly" only reads them and "saveImported" only saves the result.

#include "store/SetsCsv.h"
#include "store/ShootFile.h"
#include "store/ShootManager.h"
#include "store/StoreFile.h"
#include "support/FigureTable.h"

#include <QHash>
#include <QJsonDocument>
#include <QSaveFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <memory>

namespace {

using namespace morvak;

constexpr int shootCount = 50;
constexpr int setCount = 200;
constexpr int rowCount = 10'000;

SetData makeSet(int number)
{
    SetData set;
    set.setNumber = QString::number(number);
    set.brand = QStringLiteral("Maison Élodie & Noord");
    set.model = QStringLiteral("Anna de Vries");
    set.location = QStringLiteral("Studio 2, Amsterdam");
    set.email = QStringLiteral("set%1@voorbeeld.example").arg(number);
    set.taggedCount = number * 7;
    for (const char* name : {"Overshirt", "Chino", "Sneaker \"Low\""})
        set.items.append({.name = QString::fromLatin1(name), .color = QStringLiteral("navy")});
    return set;
}

QList<Shoot> makeShoots()
{
    QList<Shoot> shoots;
    for (int s = 0; s < shootCount; ++s) {
        Shoot shoot;
        shoot.name = QStringLiteral("Lookbook %1").arg(s);
        shoot.location = QStringLiteral("Amsterdam");
        shoot.watchFolderPath = QStringLiteral("/srv/Foto's/Lookbook %1/Capture").arg(s);
        for (int n = 1; n <= setCount; ++n) {
            shoot.sets.append(makeSet(n));
            for (int twice = 0; twice < 2; ++twice)
                shoot.activationLog.append({.setId = shoot.sets.last().id, .activatedAt = Timestamp::now()});
        }
        shoots.append(shoot);
    }
    return shoots;
}

QString csvRows()
{
    QList<SetData> sets;
    for (int n = 1; n <= rowCount; ++n)
        sets.append(makeSet(n));
    return encodeSetsCsv(sets);
}

QByteArray storeBytes()
{
    return encodeShoots(makeShoots()).value_or(QByteArray());
}

void writeBytes(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        qFatal("cannot write the bench's file");
}

void encode(benchmark::State& state)
{
    const QList<Shoot> shoots = makeShoots();
    for (auto _ : state)
        benchmark::DoNotOptimize(encodeShoots(shoots));
    state.counters["bytes"] = static_cast<double>(encodeShoots(shoots)->size());
}

void decode(benchmark::State& state)
{
    const QByteArray bytes = storeBytes();
    for (auto _ : state) {
        JsonFault fault;
        if (!decodeShoots(bytes, fault))
            state.SkipWithError("unreadable");
    }
}

void bareParse(benchmark::State& state)
{
    const QByteArray bytes = storeBytes();
    for (auto _ : state)
        benchmark::DoNotOptimize(QJsonDocument::fromJson(bytes).isArray());
}

void bareWrite(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QByteArray bytes = storeBytes();
    for (auto _ : state)
        writeBytes(folder.filePath(QStringLiteral("bare.json")), bytes);
}

void save(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("shoots.json"));
    writeBytes(path, storeBytes());
    ShootManager manager(path);
    manager.load();
    for (auto _ : state)
        manager.save();
}

/// As at the start of the program; giving the previous store's memory back does not count.
void load(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("shoots.json"));
    writeBytes(path, storeBytes());
    for (auto _ : state) {
        state.PauseTiming();
        auto manager = std::make_unique<ShootManager>(path);
        state.ResumeTiming();
        manager->load();
        state.PauseTiming();
        if (manager->shoots().size() != shootCount)
            state.SkipWithError("not loaded");
        manager.reset();
        state.ResumeTiming();
    }
}

void countPhoto(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("shoots.json"));
    writeBytes(path, storeBytes());
    ShootManager manager(path);
    manager.load();
    const QUuid lastSet = manager.shoots().last().sets.last().id;
    for (auto _ : state)
        manager.incrementTagCount(lastSet);
}

void rowsOnly(benchmark::State& state)
{
    const QString rows = csvRows();
    for (auto _ : state) {
        QString fault;
        benchmark::DoNotOptimize(decodeSetsCsv(rows, fault));
    }
}

void importRows(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString rows = csvRows();
    ShootManager manager(folder.filePath(QStringLiteral("shoots.json")));
    for (auto _ : state) {
        state.PauseTiming();
        if (const auto last = manager.activeShootId())
            manager.deleteShoot(*last);
        manager.createShoot({}, {}, {});
        state.ResumeTiming();
        if (manager.importCSV(rows, *manager.activeShootId()) != rowCount)
            state.SkipWithError("not imported");
    }
}

void saveImported(benchmark::State& state)
{
    const QTemporaryDir folder;
    ShootManager manager(folder.filePath(QStringLiteral("shoots.json")));
    manager.createShoot({}, {}, {});
    manager.importCSV(csvRows(), *manager.activeShootId());
    for (auto _ : state)
        manager.save();
}

/// A shoot of 10,000 sets, there and back.
void shootFile(benchmark::State& state)
{
    Shoot shoot;
    for (int n = 1; n <= rowCount; ++n)
        shoot.sets.append(makeSet(n));
    for (auto _ : state) {
        JsonFault fault;
        if (!decodeShootFile(encodeShootFile(shoot).value_or(QByteArray()), fault))
            state.SkipWithError("unreadable");
    }
}

}  // namespace

BENCHMARK(encode)->Unit(benchmark::kMillisecond);
BENCHMARK(decode)->Unit(benchmark::kMillisecond);
BENCHMARK(bareParse)->Unit(benchmark::kMillisecond);
BENCHMARK(bareWrite)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(save)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(load)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(countPhoto)->Unit(benchmark::kMicrosecond);
BENCHMARK(rowsOnly)->Unit(benchmark::kMillisecond);
BENCHMARK(importRows)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(saveImported)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(shootFile)->Unit(benchmark::kMillisecond);

namespace {

/// Keeps the times for the table.
class Reporter final : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs)
            m_milliseconds.insert(QString::fromStdString(run.run_name.function_name),
                                  run.GetAdjustedRealTime());
    }

    void addFigures() const
    {
        const QString shoots =
            QStringLiteral("Store of %1 shoots of %2 sets, ").arg(shootCount).arg(setCount);
        add(shoots + QStringLiteral("saving"), "save", QStringLiteral("a bare write of the same bytes"),
            "bareWrite");
        add(shoots + QStringLiteral("loading"), "load", QStringLiteral("parsing the same JSON"), "bareParse");
        add(QStringLiteral("Import of %1 CSV rows").arg(rowCount), "importRows",
            QStringLiteral("saving the result"), "saveImported");
    }

private:
    void add(const QString& subject, const char* ours, const QString& what, const char* theirs) const
    {
        const double time = m_milliseconds.value(QString::fromLatin1(ours));
        const double bare = m_milliseconds.value(QString::fromLatin1(theirs));
        if (time <= 0 || bare <= 0)
            return;  // filtered out
        const auto told = [](double ms) { return QStringLiteral("%1 ms").arg(ms, 0, 'f', 1); };
        bench::addFigure(subject, told(time), bench::Comparison{what, told(bare), time / bare});
    }

    QHash<QString, double> m_milliseconds;
};

}  // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    Reporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.addFigures();
}
