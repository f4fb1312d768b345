// Measures the real program on real files. Machines are noisy: compare the ratios within one run.

#include "Sections.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

using namespace morvak::bench;

namespace {

struct Section {
    const char* name;
    bool (*measure)(const BenchOptions&);
};

constexpr Section sections[]{{"burst", measureBurst},     {"nef", measureNefBurst},
                             {"latency", measureLatency}, {"many", measureManyPhotos},
                             {"idle", measureIdle},       {"start", measureStart}};

BenchOptions read(const QCommandLineParser& parser)
{
    return {.program = parser.value(QStringLiteral("morvak")),
            .photos = parser.value(QStringLiteral("photos")).toLongLong(),
            .size = static_cast<qsizetype>(parser.value(QStringLiteral("megabytes")).toDouble() * 1e6),
            .small = parser.value(QStringLiteral("small")).toLongLong(),
            .shots = parser.value(QStringLiteral("shots")).toLongLong(),
            .shellLoop = !parser.isSet(QStringLiteral("no-shell-loop"))};
}

}  // namespace

int main(int argc, char** argv)
{
    qputenv("LC_ALL", "C.UTF-8");
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Measures morvak on real photos."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("section"),
                                 QStringLiteral("burst, nef, latency, many, idle, start; all without one"),
                                 QStringLiteral("[section...]"));
    const QString beside = QCoreApplication::applicationDirPath() + QStringLiteral("/morvak");
    parser.addOptions({{QStringLiteral("morvak"), QStringLiteral("The program; default: beside this one."),
                        QStringLiteral("path"), beside},
                       {QStringLiteral("photos"), QStringLiteral("Photos of the burst."),
                        QStringLiteral("count"), QStringLiteral("100")},
                       {QStringLiteral("megabytes"), QStringLiteral("Size of a photo of burst and latency."),
                        QStringLiteral("size"), QStringLiteral("25")},
                       {QStringLiteral("small"), QStringLiteral("Photos of the big drop."),
                        QStringLiteral("count"), QStringLiteral("1000")},
                       {QStringLiteral("shots"), QStringLiteral("Photos of the latency."),
                        QStringLiteral("count"), QStringLiteral("40")},
                       {QStringLiteral("no-shell-loop"), QStringLiteral("Leave the shell loop out.")}});
    parser.process(application);
    const QStringList wanted = parser.positionalArguments();
    bool right = true;
    for (const Section& section : sections) {
        if (!wanted.isEmpty() && !wanted.contains(QLatin1String(section.name)))
            continue;
        right = section.measure(read(parser)) && right;
        std::fflush(stdout);
    }
    return right ? 0 : 1;
}
