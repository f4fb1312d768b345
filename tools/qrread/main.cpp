// morvak-qrread [--times]: reads the QR codes of photos whose paths come on standard input, one a line, and
// answers each with a line `path<TAB>base64 of the text`, nothing after the tab where there is no code or no
// image. With
// --times a third column tells the milliseconds of processor time that reading took, decoding the file not
// counted.

#include "qr/QRPhotoDetector.h"

#include <QCoreApplication>
#include <QImageReader>

#include <cstring>
#include <ctime>
#include <iostream>
#include <string>

namespace {

/// The image as the watcher sees it: upright, at most 4,096 pixels on its longer side.
QImage decoded(const std::string& path)
{
    constexpr int longestSide = 4096;
    QImageReader reader(QString::fromStdString(path));
    reader.setAutoTransform(true);
    reader.setDecideFormatFromContent(true);
    if (const QSize size = reader.size(); size.width() > longestSide || size.height() > longestSide)
        reader.setScaledSize(size.scaled(longestSide, longestSide, Qt::KeepAspectRatio));
    return reader.read();
}

double processorMilliseconds()
{
    return 1000.0 * double(std::clock()) / CLOCKS_PER_SEC;
}

}  // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const bool times = argc > 1 && std::strcmp(argv[1], "--times") == 0;
    if (argc > (times ? 2 : 1)) {
        std::cerr << "usage: morvak-qrread [--times] < list-of-paths\n";
        return 2;
    }
    for (std::string path; std::getline(std::cin, path);) {
        const QImage image = decoded(path);
        const double before = processorMilliseconds();
        const auto text = morvak::QRPhotoDetector::detectQRText(image);
        const double spent = processorMilliseconds() - before;
        std::cout << path << '\t' << text.value_or(QString()).toUtf8().toBase64().constData();
        if (times)
            std::cout << '\t' << spent;
        std::cout << std::endl;
    }
    return 0;
}
