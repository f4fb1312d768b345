#include "BareWrites.h"

#include "metadata/StayOpenTool.h"
#include "metadata/TaggingRequest.h"
#include "metadata/ToolLookup.h"

namespace morvak::bench {

std::chrono::duration<double> timeBareWrites(const QDir& folder, const QStringList& names)
{
    const Interrupt never;
    StayOpenTool tool(
        {.label = QStringLiteral("ExifTool"), .limits = {}}, [] { return findExifTool(QString()); }, never);
    if (!tool.start())
        qFatal("exiftool does not start");
    const QStringList options = taggingOptions(benchTagging());
    const auto start = std::chrono::steady_clock::now();
    for (const QString& name : names) {
        if (!tool.request(options, folder.filePath(name)).answer.succeeded())
            qFatal("exiftool does not tag %s", qPrintable(name));
    }
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    tool.stop();
    return time;
}

}  // namespace morvak::bench
