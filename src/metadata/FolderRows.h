#pragma once

#include <QByteArrayView>
#include <QList>
#include <QSet>
#include <QString>

#include <optional>

namespace morvak {

/// What exiftool printed of one photo; "-" stands for a value that the photo lacks.
struct SubjectAndDate {
    QString fileName;
    QString subject;           ///< XMP Subject, the entries of a list joined with ", "
    QString dateTimeOriginal;  ///< year:month:day hour:minute:second; may be empty
    bool operator==(const SubjectAndDate&) const = default;
};

/// Whether exiftool prints this file name as it is: it is UTF-8 and holds no control character.
[[nodiscard]] bool isPrintedAsItIs(const QString& fileName);

/// Reads what `exiftool -T` printed: a line for each photo, its fields parted by TAB. A line that is empty or
/// has fewer than two fields is no row; what follows a third field is ignored. Rows of photos that are not
/// among `listed`, further rows of the same photo and a last line without its line feed are left out, so that
/// no photo gets what belongs to another. None when the output is no UTF-8. Pure.
[[nodiscard]] std::optional<QList<SubjectAndDate>> folderRows(QByteArrayView output, QSet<QString> listed);

}  // namespace morvak
