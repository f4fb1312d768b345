#include "engine/WatcherWiring.h"

#include "metadata/ExifToolService.h"
#include "platform/Sound.h"
#include "platform/Trash.h"
#include "qr/QRPhotoDetector.h"

#include <QFileInfo>

namespace morvak {

WatcherServices watcherServices(ExifToolService& exifTool)
{
    WatcherServices services;
    services.eyes.tool.exists = [&exifTool] { return QFileInfo::exists(exifTool.findExifTool()); };
    services.eyes.tool.read = [&exifTool](const QStringList& options, const QString& path) {
        return exifTool.read(options, path);
    };
    services.eyes.detectQRText = QRPhotoDetector::detectQRText;
    services.readHeadline = [&exifTool](const QString& path) { return exifTool.readHeadline(path); };
    services.writeMetadata = [&exifTool](const QString& to, const Tagging& tagging,
                                         std::function<void(bool)> completion) {
        exifTool.writeMetadata(to, tagging, std::move(completion));
    };
    services.clearUp = [&exifTool](const QString& folder) { exifTool.clearUp(folder); };
    services.moveToTrash = moveToTrash;
    services.playSound = playActivationSound;
    return services;
}

}  // namespace morvak
