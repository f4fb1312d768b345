// Writes the files of the sample shoot into a folder: photos and photographed set cards to try Morvak with.

#include "sampleshoot/SampleShoot.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTextStream>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");  // it draws, but shows nothing
    const QGuiApplication application(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 2 || arguments.at(1).startsWith(QLatin1Char('-'))) {
        err << "Gebruik: morvak-sampleshoot MAP\n";
        return 2;
    }
    const QDir folder(arguments.at(1));
    if (!folder.mkpath(QStringLiteral("."))) {
        err << "De map kan niet worden gemaakt: " << folder.path() << '\n';
        return 1;
    }
    for (const morvak::samples::SamplePhoto& photo :
         morvak::samples::sampleShoot(morvak::samples::sampleSets())) {
        QFile file(folder.filePath(photo.name));
        if (!file.open(QIODevice::WriteOnly) || file.write(photo.bytes) != photo.bytes.size() ||
            !file.flush()) {
            err << "Niet geschreven: " << file.fileName() << ": " << file.errorString() << '\n';
            return 1;
        }
        out << file.fileName() << '\n' << Qt::flush;
    }
    return 0;
}
