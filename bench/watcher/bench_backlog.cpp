// How long it takes to look through a folder of photos that all carry a headline, and what that does to a new
// photo. Machines are noisy: compare the ratios within one run.

#include "engine/WatcherWiring.h"
#include "metadata/ExifToolService.h"
#include "sampleshoot/PhotoEncoders.h"
#include "sampleshoot/SampleShoot.h"
#include "support/FigureTable.h"
#include "watch/FolderWatcher.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

using namespace morvak;
using namespace Qt::StringLiterals;

namespace {

constexpr int oneShotRuns = 10;

void require(bool condition, const char* what)
{
    if (condition)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::exit(1);
}

bool tag(ExifToolService& exifTool, const QString& path)
{
    bool tagged = false;
    QEventLoop loop;
    exifTool.writeMetadata(path, samples::sampleTagging(u"Herfst"_s), [&](bool ok) {
        tagged = ok;
        loop.quit();
    });
    loop.exec();
    return tagged;
}

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    require(file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size(), "cannot write a photo");
}

/// JPEG and NEF in turn, of three megabytes, tagged.
void fill(const QDir& folder, int photos, ExifToolService& exifTool)
{
    samples::PhotoOptions options = samples::plainPhoto(QSize(1620, 1080));
    options.size = 3'000'000;
    const QStringList first{folder.filePath(u"photo_0.jpg"_s), folder.filePath(u"photo_1.nef"_s)};
    write(first[0], samples::jpegPhoto(options));
    write(first[1], samples::nefPhoto(options));
    for (const QString& path : first)
        require(tag(exifTool, path), "cannot tag a photo");
    for (int i = 2; i < photos; ++i) {
        const QString& from = first[i % 2];
        require(QFile::copy(from, folder.filePath(u"photo_%1%2"_s.arg(i).arg(from.right(4)))), "cannot copy");
    }
}

double secondsOfOneShot(const QString& tool, const QString& path)
{
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < oneShotRuns; ++i)
        QProcess::execute(u"sh"_s,
                          {u"-c"_s, u"\"$0\" -s3 -XMP-photoshop:Headline \"$1\" >/dev/null"_s, tool, path});
    return double(timer.nsecsElapsed()) / 1e9 / oneShotRuns;
}

/// Until `photo` has been tagged while the run goes on; -1 when the run ended first.
double secondsOfNewPhoto(FolderWatcher& watcher, const QString& photo)
{
    samples::PhotoOptions options = samples::plainPhoto(QSize(1620, 1080));
    const QByteArray bytes = samples::jpegPhoto(options);
    QElapsedTimer timer;
    timer.start();
    write(photo, bytes);
    while (watcher.lastTaggedFile() != QFileInfo(photo).fileName() && timer.elapsed() < 60'000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return double(timer.nsecsElapsed()) / 1e9;
}

}  // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addOption({u"photos"_s, u"Photos in the folder."_s, u"count"_s, u"2000"_s});
    parser.process(application);
    const int photos = parser.value(u"photos"_s).toInt();

    const QTemporaryDir root;
    const QDir folder(root.path());
    ExifToolService exifTool;
    exifTool.start();
    fill(folder, photos, exifTool);
    FolderWatcher watcher(watcherServices(exifTool));
    watcher.startWatching(folder.path());
    watcher.setCurrentSet(samples::sampleSets().constLast());

    const double quiet = secondsOfNewPhoto(watcher, folder.filePath(u"stil.jpg"_s));
    Shoot shoot;
    std::optional<BacklogScanSummary> summary;
    QElapsedTimer timer;
    timer.start();
    watcher.processExistingFiles(folder.path(), shoot, [&](const BacklogScanSummary& s) { summary = s; });
    const double meanwhile = secondsOfNewPhoto(watcher, folder.filePath(u"intussen.jpg"_s));
    require(!summary, "the folder was looked through before the new photo was tagged");
    while (!summary)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const double scan = double(timer.nsecsElapsed()) / 1e9;
    const double oneShot = secondsOfOneShot(exifTool.findExifTool(), folder.filePath(u"photo_0.jpg"_s));

    std::printf(
        "%d photos with a headline: %.1f s, %.1f ms each; a run of exiftool each takes %.1f ms, %.1fx\n",
        photos, scan, scan / photos * 1e3, oneShot * 1e3, oneShot / (scan / photos));
    std::printf("new photo tagged after %.2f s on its own, %.2f s meanwhile\n", quiet, meanwhile);
    const auto told = [](double seconds) { return u"%1 ms"_s.arg(seconds * 1e3, 0, 'f', 1); };
    const auto toldSeconds = [](double seconds) { return u"%1 s"_s.arg(seconds, 0, 'f', 2); };
    bench::addFigure(
        u"Backlog: %1 tagged photos looked through, each"_s.arg(photos), told(scan / photos),
        bench::Comparison{u"one run of the bare tool a photo"_s, told(oneShot), scan / photos / oneShot});
    bench::addFigure(u"A new photo while the backlog goes on"_s, toldSeconds(meanwhile),
                     bench::Comparison{u"without a backlog"_s, toldSeconds(quiet), meanwhile / quiet});
    watcher.prepareToQuit();
    exifTool.terminateForAppQuit();
    return summary->totalCandidates == 0 ? 0 : 1;
}
