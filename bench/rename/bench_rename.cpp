// What copying RAW files under their names costs: reading the names of all photos with one run of exiftool
// and copying them, against copying the same files and nothing else. Both copies reach the disk cache only.

#include "metadata/ExifToolService.h"
#include "rename/RawRenameService.h"
#include "sampleshoot/PhotoEncoders.h"
#include "sampleshoot/SampleShoot.h"
#include "support/FigureTable.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>

using namespace morvak;
using namespace Qt::StringLiterals;

namespace {

void fill(const QDir& folder, int photos, qsizetype size, ExifToolService& exifTool)
{
    samples::PhotoOptions options = samples::plainPhoto(QSize(1620, 1080));
    options.size = size;
    const QString first = folder.filePath(u"photo_0.nef"_s);
    QFile file(first);
    if (const QByteArray bytes = samples::nefPhoto(options);
        !file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write a photo");
    file.close();
    QEventLoop loop;
    exifTool.writeMetadata(first, samples::sampleTagging(u"Herfst"_s), [&](bool) { loop.quit(); });
    loop.exec();
    for (int i = 1; i < photos; ++i) {
        if (!QFile::copy(first, folder.filePath(u"photo_%1.nef"_s.arg(i))))
            qFatal("cannot copy a photo");
    }
}

double secondsOfRename(const QDir& folder, ExifToolService& exifTool, int photos)
{
    const QTemporaryDir destination;
    const RawRenameService service(
        [&exifTool](const QString& in, const QSet<QString>& extensions, const ReadingControl& control) {
            return exifTool.readSubjectsAndDates(in, extensions, control);
        });
    QElapsedTimer timer;
    timer.start();
    if (service.run(folder.path(), destination.path()).renamedCount() != photos)
        qFatal("not all photos were copied");
    return double(timer.nsecsElapsed()) / 1e9;
}

double secondsOfCopies(const QDir& folder)
{
    const QTemporaryDir destination;
    QElapsedTimer timer;
    timer.start();
    for (const QString& name : folder.entryList(QDir::Files)) {
        if (!QFile::copy(folder.filePath(name), destination.filePath(name)))
            qFatal("cannot copy a photo");
    }
    return double(timer.nsecsElapsed()) / 1e9;
}

}  // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addOptions({{u"photos"_s, u"Photos in the folder."_s, u"count"_s, u"200"_s},
                       {u"megabytes"_s, u"Size of a photo."_s, u"size"_s, u"10"_s}});
    parser.process(application);
    const int photos = parser.value(u"photos"_s).toInt();
    const double megabytes = parser.value(u"megabytes"_s).toDouble();

    const QTemporaryDir root;
    const QDir folder(root.path());
    ExifToolService exifTool;
    exifTool.start();
    fill(folder, photos, qsizetype(megabytes * 1e6), exifTool);
    (void)secondsOfCopies(folder);  // warms the cache for both
    const double copies = secondsOfCopies(folder);
    const double rename = secondsOfRename(folder, exifTool, photos);
    std::printf("%d photos of %.1f MB: %.2f s; copied without looking at them %.2f s, %.2fx\n", photos,
                megabytes, rename, copies, rename / copies);
    bench::addFigure(u"Rename: %1 RAW files of %2 MB"_s.arg(photos).arg(megabytes),
                     u"%1 s"_s.arg(rename, 0, 'f', 2),
                     bench::Comparison{u"bare copies"_s, u"%1 s"_s.arg(copies, 0, 'f', 2), rename / copies});
    exifTool.terminateForAppQuit();
}
