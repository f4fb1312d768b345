#include "platform/Trash.h"

#include <QFile>

namespace morvak {

bool moveToTrash(const QString& path)
{
    return QFile::moveToTrash(path);
}

}  // namespace morvak
