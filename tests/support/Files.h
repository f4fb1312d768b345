#pragma once

#include "platform/FileName.h"

#include <QtGlobal>

#include <fcntl.h>
#include <unistd.h>

namespace morvak::test {

/// Makes or replaces a file; its name may be no UTF-8. Ends the test program when it cannot.
inline void writeFile(const QString& path, const QByteArray& contents)
{
    const int file = ::open(encodeFileName(path).constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (file < 0 || ::write(file, contents.data(), static_cast<size_t>(contents.size())) != contents.size())
        qFatal("cannot write %s", qPrintable(path));
    ::close(file);
}

}  // namespace morvak::test
