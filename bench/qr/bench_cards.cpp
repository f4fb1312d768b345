// What printing cards costs: time and memory of an export in a process of its own, for ten times as many
// cards each time. "encode" only makes the symbols of the same cards, so that export / encode tells what
// drawing and writing add on the machine at hand. Memory that does not grow with the cards shows that pages
// are streamed; what the sets themselves take is in it.

#include "cards/SampleCards.h"
#include "qr/BulkQRPDFExporter.h"
#include "qr/QRSymbol.h"
#include "support/FigureTable.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <chrono>
#include <cstdio>
#include <functional>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace morvak;

constexpr qsizetype tableCards = 500;

struct Cost {
    double seconds;           // on the clock
    double processorSeconds;  // ours and the system's for us
    long peakKilobytes;
};

/// Of `work` in a child process.
Cost costOf(const std::function<bool()>& work)
{
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(work() ? 0 : 1);
    int status = 0;
    rusage usage{};
    if (child < 0 || ::wait4(child, &status, 0, &usage) != child || status != 0)
        qFatal("the work failed");
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    const auto seconds = [](const timeval& time) { return double(time.tv_sec) + double(time.tv_usec) / 1e6; };
    return {taken.count(), seconds(usage.ru_utime) + seconds(usage.ru_stime), usage.ru_maxrss};
}

bool encodeAll(qsizetype cards)
{
    bool all = true;
    for (const SetData& set : samples::sampleCards(cards))
        all = encodeSymbol(set.toQRText()) && all;
    return all;
}

void report(BulkQRDensity density, qsizetype cards, const QString& path)
{
    const Cost encode = costOf([&] { return encodeAll(cards); });
    const Cost print =
        costOf([&] { return BulkQRPDFExporter::exportPDF(samples::sampleCards(cards), density, path); });
    std::printf("%-8s %6lld %9.3f %9.3f %6.2f %8.1f %10.1f\n", measuresOf(density).rawValue.data(),
                static_cast<long long>(cards), print.seconds, print.processorSeconds,
                print.processorSeconds / encode.processorSeconds, double(print.peakKilobytes) / 1024,
                double(QFileInfo(path).size()) / double(cards));
    std::fflush(stdout);
    const auto told = [](const Cost& cost) {
        return QStringLiteral("%1 s").arg(cost.processorSeconds, 0, 'f', 2);
    };
    if (cards == tableCards) {
        bench::addFigure(QStringLiteral("PDF of %1 cards, %2 a page; peak memory %3 MB")
                             .arg(cards)
                             .arg(measuresOf(density).perPage())
                             .arg(print.peakKilobytes / 1024),
                         told(print),
                         bench::Comparison{QStringLiteral("only encoding the codes"), told(encode),
                                           print.processorSeconds / encode.processorSeconds});
    }
}

}  // namespace

int main()
{
    const QTemporaryDir folder;
    std::printf("density   cards   clock s    cpu s  ratio  peak MB bytes/card\n");
    std::fflush(stdout);
    for (const BulkQRDensity density : bulkQRDensities)
        for (const qsizetype cards : {50, 500, 5000})
            report(density, cards, folder.filePath(QStringLiteral("cards.pdf")));
}
