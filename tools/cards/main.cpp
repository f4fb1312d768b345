// Prints the QR cards of a shoot file, or of made-up sets, into a PDF.

#include "cards/SampleCards.h"
#include "platform/Diagnostics.h"
#include "qr/BulkQRPDFExporter.h"
#include "store/ShootFile.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

#include <chrono>
#include <optional>

namespace {

using namespace morvak;

QTextStream& err()
{
    static QTextStream stream(stderr);
    return stream;
}

std::optional<QList<SetData>> setsOfFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QFile::ReadOnly)) {
        err() << "Niet gelezen: " << path << ": " << file.errorString() << '\n';
        return std::nullopt;
    }
    JsonFault fault;
    const std::optional<Shoot> shoot = decodeShootFile(file.readAll(), fault);
    if (!shoot) {
        err() << "Geen shootbestand: " << path << ": " << fault.message() << '\n';
        return std::nullopt;
    }
    return shoot->sets;
}

std::optional<QList<SetData>> setsOfNumber(const QString& text)
{
    constexpr int most = 100'000;
    bool isNumber = false;
    const int count = text.toInt(&isNumber);
    if (!isNumber || count < 1 || count > most) {
        err() << "Het aantal is 1 tot " << most << ", niet " << text << '\n';
        return std::nullopt;
    }
    return samples::sampleCards(count);
}

int print(const QList<SetData>& sets, BulkQRDensity density, const QString& path)
{
    if (sets.isEmpty()) {
        err() << "Er zijn geen sets om te printen.\n";
        return 1;
    }
    if (!BulkQRPDFExporter::exportPDF(sets, density, path)) {
        flushDiagnostics(std::chrono::seconds(5));  // they tell why
        return 1;
    }
    const int perPage = measuresOf(density).perPage();
    QTextStream(stdout) << path << ": " << sets.size() << " kaarten, "
                        << (sets.size() + perPage - 1) / perPage << " pagina's\n";
    return 0;
}

}  // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption compact(QStringLiteral("compact"), labelOf(BulkQRDensity::compact));
    const QCommandLineOption sample(QStringLiteral("sample"),
                                    QStringLiteral("verzonnen sets in plaats van een shoot"),
                                    QStringLiteral("aantal"));
    parser.addOptions({compact, sample});
    const bool understood = parser.parse(QCoreApplication::arguments());
    const QStringList paths = parser.positionalArguments();
    if (!understood || paths.size() != (parser.isSet(sample) ? 1 : 2)) {
        err() << "Gebruik: morvak-cards [--compact] SHOOT.morvak KAARTEN.pdf\n"
                 "         morvak-cards [--compact] --sample AANTAL KAARTEN.pdf\n";
        return 2;
    }
    const auto sets = parser.isSet(sample) ? setsOfNumber(parser.value(sample)) : setsOfFile(paths.first());
    const auto density = parser.isSet(compact) ? BulkQRDensity::compact : BulkQRDensity::large;
    return sets ? print(*sets, density, paths.last()) : 1;
}
