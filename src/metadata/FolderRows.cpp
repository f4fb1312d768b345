#include "metadata/FolderRows.h"

#include "platform/FileName.h"

#include <algorithm>

namespace morvak {

namespace {

std::optional<SubjectAndDate> rowOf(QStringView line)
{
    const qsizetype first = line.indexOf(u'\t');
    if (first < 0)
        return std::nullopt;
    const QStringView rest = line.sliced(first + 1);
    const qsizetype second = rest.indexOf(u'\t');
    if (second < 0)
        return SubjectAndDate{line.first(first).toString(), rest.toString(), {}};
    const QStringView dates = rest.sliced(second + 1);
    const qsizetype third = dates.indexOf(u'\t');
    return SubjectAndDate{line.first(first).toString(), rest.first(second).toString(),
                          (third < 0 ? dates : dates.first(third)).toString()};
}

}  // namespace

bool isPrintedAsItIs(const QString& fileName)
{
    const auto isControl = [](QChar c) { return c < u' ' || c == u'\x7f'; };
    return std::none_of(fileName.begin(), fileName.end(), isControl) &&
           encodeFileName(fileName).isValidUtf8();
}

std::optional<QList<SubjectAndDate>> folderRows(QByteArrayView output, QSet<QString> listed)
{
    if (!output.isValidUtf8())
        return std::nullopt;
    const QString text = QString::fromUtf8(output);
    QList<SubjectAndDate> rows;
    qsizetype start = 0;
    for (qsizetype end = 0; (end = text.indexOf(u'\n', start)) >= 0; start = end + 1) {
        std::optional<SubjectAndDate> row = rowOf(QStringView(text).sliced(start, end - start));
        if (row && listed.remove(row->fileName))
            rows.append(*std::move(row));
    }
    return rows;
}

}  // namespace morvak
