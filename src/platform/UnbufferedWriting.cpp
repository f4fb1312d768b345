#include "platform/UnbufferedWriting.h"

#include <QSaveFile>

namespace morvak {

QString openUnbuffered(QSaveFile& file)
{
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) ? QString() : file.errorString();
}

QString appendTo(QSaveFile& file, QByteArrayView part)
{
    while (!part.isEmpty()) {
        const qint64 written = file.write(part.data(), part.size());
        if (written <= 0)
            return file.errorString();
        part = part.sliced(written);
    }
    return {};
}

QString putInPlace(QSaveFile& file)
{
    return file.commit() ? QString() : file.errorString();
}

}  // namespace morvak
