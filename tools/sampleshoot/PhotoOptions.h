#pragma once

#include <QDateTime>
#include <QImage>

namespace morvak::samples {

/// What every kind of sample photo can be asked for.
struct PhotoOptions {
    /// The picture as a viewer shows it; it is stored turned the way `orientation` undoes. RAW containers
    /// carry it as their preview, 1,620 pixels on its long side.
    QImage upright;

    /// Exif orientation (CIPA DC-008, TIFF 6.0), 1 to 8.
    int orientation = 1;

    /// JPEG only: a 160 x 120 thumbnail in the Exif block (IFD1), as cameras write it.
    bool thumbnail = true;

    /// The file has at least this many bytes (and hardly more): a JPEG gets application segments, a RAW
    /// container a longer strip, both filled with noise. A TIFF photo is as long as its picture and takes no
    /// notice.
    qsizetype size = 0;

    /// Decides the noise.
    quint32 seed = 1;

    QDateTime taken = QDateTime::currentDateTime();
};

/// A photo of one colour, for where only the file matters.
inline PhotoOptions plainPhoto(const QSize& size)
{
    PhotoOptions options;
    options.upright = QImage(size, QImage::Format_RGB32);
    options.upright.fill(Qt::darkCyan);
    return options;
}

}  // namespace morvak::samples
