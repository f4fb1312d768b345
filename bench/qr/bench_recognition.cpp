// What looking for a set card costs on pictures as cameras make them: photographed cards and photos without a
// card, against one plain look of the decoding library at the same pictures, its own ways of trying harder
// included.

#include "qr/QRPhotoDetector.h"
#include "sampleshoot/CardPhoto.h"
#include "sampleshoot/Outfit.h"
#include "sampleshoot/SampleShoot.h"
#include "sampleshoot/StudioScene.h"
#include "support/FigureTable.h"

#include <QElapsedTimer>
#include <QGuiApplication>

#define ZX_USE_UTF8
#include <ZXing/ReadBarcode.h>

#include <cstdio>
#include <functional>
#include <vector>

using namespace morvak;
using namespace Qt::StringLiterals;

namespace {

constexpr QSize preview(1620, 1080);
constexpr quint32 photos = 40;

using Reader = std::function<bool(const QImage&)>;

struct Result {
    double milliseconds;  // a photo
    int found = 0;
};

Result measure(const std::vector<QImage>& pictures, const Reader& read)
{
    Result result{};
    QElapsedTimer timer;
    timer.start();
    for (const QImage& picture : pictures)
        result.found += read(picture) ? 1 : 0;
    result.milliseconds = double(timer.nsecsElapsed()) / 1e6 / double(pictures.size());
    return result;
}

bool ours(const QImage& picture)
{
    return QRPhotoDetector::detectQRText(picture).has_value();
}

bool plainLook(const QImage& picture)
{
    const QImage gray = picture.convertToFormat(QImage::Format_Grayscale8);
    const auto hints =
        ZXing::DecodeHints().setFormats(ZXing::BarcodeFormat::QRCode).setTryHarder(true).setTryRotate(true);
    const ZXing::ImageView view(gray.constBits(), gray.width(), gray.height(), ZXing::ImageFormat::Lum,
                                int(gray.bytesPerLine()));
    return ZXing::ReadBarcode(view, hints).isValid();
}

void report(const QString& kind, const std::vector<QImage>& pictures)
{
    const Result morvak = measure(pictures, ours);
    const Result plain = measure(pictures, plainLook);
    const auto told = [&pictures](const Result& result) {
        return u"%1 ms, %2/%3 read"_s.arg(result.milliseconds, 0, 'f', 1)
            .arg(result.found)
            .arg(pictures.size());
    };
    std::printf("%s: %s; a plain look %s\n", qPrintable(kind), qPrintable(told(morvak)),
                qPrintable(told(plain)));
    bench::addFigure(u"Recognition: "_s + kind, told(morvak),
                     bench::Comparison{u"the library's plain look"_s, told(plain),
                                       morvak.milliseconds / plain.milliseconds});
}

}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QList<SetData> sets = samples::sampleSets();
    std::vector<QImage> cards;
    std::vector<QImage> scenes;
    for (quint32 seed = 1; seed <= photos; ++seed) {
        const SetData& set = sets[seed % quint32(sets.size())];
        cards.push_back(samples::cardPhoto(set, preview, seed));
        scenes.push_back(samples::studioScene(samples::outfitOf(set), preview, seed));
    }
    report(u"photographed cards"_s, cards);
    report(u"photos without a card"_s, scenes);
}
