// What the product catalog costs with 10,000 products of three colours. "import" is the whole operation on an
// empty catalog, the wait for the disk included; "importKnown" meets the same names again; "addOne" is what
// one more product costs. "bareWrite" writes and syncs the same bytes with nothing else, so that
// import / bareWrite tells what Morvak adds on the machine at hand.

#include "catalog/CatalogCsv.h"
#include "catalog/CatalogFile.h"
#include "catalog/ProductCatalog.h"

#include <QFile>
#include <QSaveFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

using namespace morvak;

constexpr quint32 productCount = 10'000;

/// Names in no order.
QString csvText()
{
    QString text = QStringLiteral("Naam;Kleuren;Merk\n");
    for (quint32 i = 1; i <= productCount; ++i) {
        const quint32 number = i * 2'654'435'761U;
        text +=
            QStringLiteral("Écru overshirt %1;navy, écru, zwart;Maison Élodie %2\n").arg(number).arg(i % 40);
    }
    return text;
}

class Folder {
public:
    [[nodiscard]] QString path() const { return m_folder.filePath(QStringLiteral("catalog.json")); }

private:
    QTemporaryDir m_folder;
};

void import(benchmark::State& state)
{
    const QString text = csvText();
    const Folder folder;
    for (auto _ : state) {
        state.PauseTiming();
        QFile::remove(folder.path());
        ProductCatalog catalog(folder.path());
        state.ResumeTiming();
        if (catalog.importCSV(text, {}) != productCount)
            state.SkipWithError("not all were imported");
    }
}

template <typename Operation>
void onFullCatalog(benchmark::State& state, const Operation& operation)
{
    const Folder folder;
    ProductCatalog catalog(folder.path());
    catalog.importCSV(csvText(), {});
    for (auto _ : state)
        operation(catalog);
}

void importKnown(benchmark::State& state)
{
    onFullCatalog(state, [text = csvText()](ProductCatalog& catalog) { catalog.importCSV(text, {}); });
}

void addOne(benchmark::State& state)
{
    onFullCatalog(state, [](ProductCatalog& catalog) { catalog.addProduct(QStringLiteral("Jas"), {}, {}); });
}

void load(benchmark::State& state)
{
    onFullCatalog(state, [](ProductCatalog& catalog) { catalog.load(); });
}

void bareWrite(benchmark::State& state)
{
    const QByteArray bytes = encodeCatalog({*readCatalogCsv(csvText(), {}, {}), {}, {}});
    const Folder folder;
    for (auto _ : state) {
        QSaveFile file(folder.path());
        if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
            state.SkipWithError("cannot write");
    }
}

BENCHMARK(import)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(importKnown)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(addOne)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(load)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(bareWrite)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
