#include "watch/PhotoTypes.h"

#include "platform/FileName.h"

namespace morvak {

const QSet<QString>& rawExtensions()
{
    static const QSet<QString> extensions = {
        QStringLiteral("cr3"), QStringLiteral("cr2"), QStringLiteral("nef"), QStringLiteral("nrw"),
        QStringLiteral("arw"), QStringLiteral("raf"), QStringLiteral("rw2"), QStringLiteral("orf"),
        QStringLiteral("dng"), QStringLiteral("fff"), QStringLiteral("3fr"), QStringLiteral("rwl"),
        QStringLiteral("raw")};
    return extensions;
}

const QSet<QString>& allExtensions()
{
    static const QSet<QString> extensions =
        rawExtensions() + QSet<QString>{QStringLiteral("jpg"), QStringLiteral("jpeg"), QStringLiteral("tiff"),
                                        QStringLiteral("tif")};
    return extensions;
}

bool isPhotoName(const QString& pathOrName)
{
    return allExtensions().contains(lowerCaseExtension(pathOrName));
}

bool isRawName(const QString& pathOrName)
{
    return rawExtensions().contains(lowerCaseExtension(pathOrName));
}

}  // namespace morvak
