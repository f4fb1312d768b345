#include "metadata/FolderRows.h"

#include <QStringList>

#include <cstdint>
#include <cstdlib>

using morvak::SubjectAndDate;

namespace {

/// Each row belongs to a photo of its own, and printed once more reads the same.
void checkRows(const QList<SubjectAndDate>& rows, const QSet<QString>& listed)
{
    QSet<QString> rest = listed;
    QString printed;
    for (const SubjectAndDate& row : rows) {
        const QStringList fields = {row.fileName, row.subject, row.dateTimeOriginal};
        if (!rest.remove(row.fileName) || fields.join(QString()).contains(u'\t'))
            std::abort();
        printed += fields.join(u'\t') + u'\n';
    }
    if (morvak::folderRows(printed.toUtf8(), listed) != rows)
        std::abort();
}

}  // namespace

/// Up to the first NUL the names of the photos, a line each; then the tool's output.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray input(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const qsizetype end = qMax<qsizetype>(input.indexOf('\0'), 0);
    const QStringList names = QString::fromUtf8(input.first(end)).split(u'\n');
    const QSet<QString> listed(names.begin(), names.end());
    const QByteArray output = input.sliced(end);
    const auto rows = morvak::folderRows(output, listed);
    if (rows.has_value() != output.isValidUtf8())
        std::abort();
    if (rows)
        checkRows(*rows, listed);
    return 0;
}
