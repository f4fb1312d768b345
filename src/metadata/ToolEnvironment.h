#pragma once

#include "platform/ChildProcess.h"

#include <QString>
#include <QStringList>

namespace morvak {

/// The folder with the tool's Perl library, beside its executable.
[[nodiscard]] QString toolLibrary(const QString& toolPath);

/// `base` (NAME=value each) with what the tool needs: PERL5LIB names its library. The tool runs the file
/// .ExifTool_config of its home folder as Perl, and where its home is no absolute path that is a file of
/// whatever folder it works in; then EXIFTOOL_HOME names a place that can hold no such file.
[[nodiscard]] QList<QByteArray> toolEnvironment(QList<QByteArray> base, const QString& toolPath);

/// How to run the tool with these arguments: in this process's environment and the tool's own folder.
[[nodiscard]] ChildCommand toolCommand(const QString& toolPath, const QList<QByteArray>& arguments);

}  // namespace morvak
