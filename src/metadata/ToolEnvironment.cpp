#include "metadata/ToolEnvironment.h"

#include "platform/FileName.h"

#include <algorithm>

namespace morvak {

namespace {

constexpr const char* perlLibrary = "PERL5LIB";
constexpr const char* toolHome = "EXIFTOOL_HOME";
constexpr const char* placeWithoutFiles = "/dev/null";

QString toolFolder(const QString& toolPath)
{
    return toolPath.first(std::max<qsizetype>(toolPath.lastIndexOf(u'/'), 0));
}

QByteArray valueOf(const QList<QByteArray>& environment, const QByteArray& name)
{
    for (const QByteArray& entry : environment) {
        if (entry.startsWith(name + '='))
            return entry.sliced(name.size() + 1);
    }
    return {};
}

void setValue(QList<QByteArray>& environment, const QByteArray& name, const QByteArray& value)
{
    environment.removeIf([&](const QByteArray& entry) { return entry.startsWith(name + '='); });
    environment.append(name + '=' + value);
}

/// The tool takes the first of these that Perl holds true, which "" and "0" are not.
QByteArray homeOfTool(const QList<QByteArray>& environment)
{
    for (const char* name : {toolHome, "HOME"}) {
        const QByteArray value = valueOf(environment, name);
        if (!value.isEmpty() && value != "0")
            return value;
    }
    return {};
}

}  // namespace

QString toolLibrary(const QString& toolPath)
{
    return toolFolder(toolPath) + QStringLiteral("/lib");
}

QList<QByteArray> toolEnvironment(QList<QByteArray> base, const QString& toolPath)
{
    if (!homeOfTool(base).startsWith('/'))
        setValue(base, toolHome, placeWithoutFiles);
    setValue(base, perlLibrary, encodeFileName(toolLibrary(toolPath)));
    return base;
}

ChildCommand toolCommand(const QString& toolPath, const QList<QByteArray>& arguments)
{
    return {encodeFileName(toolPath), arguments, toolEnvironment(ownEnvironment(), toolPath),
            encodeFileName(toolFolder(toolPath))};
}

}  // namespace morvak
