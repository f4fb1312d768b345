#include "metadata/FolderReader.h"

#include "metadata/OneShotRun.h"
#include "metadata/ToolEnvironment.h"
#include "platform/Diagnostics.h"
#include "platform/FileName.h"
#include "platform/PhotoFile.h"

#include <QFileInfo>

#include <mutex>

namespace morvak {

namespace {

void say(const QString& folder, const QString& text)
{
    diagnostic(QStringLiteral("❌ Failed to read folder: ") + folder + QStringLiteral(" — ") + text);
}

QStringList selectedPhotos(const QString& folder, const QSet<QString>& extensions)
{
    const std::optional<QStringList> entries = folderEntries(folder);
    if (!entries)
        say(folder, QStringLiteral("cannot be listed"));
    QStringList names;
    for (const QString& name : entries.value_or(QStringList())) {
        if (extensions.contains(lowerCaseExtension(name)) && regularFileState(folder + u'/' + name))
            names.append(name);
    }
    return names;
}

}  // namespace

FolderReader::FolderReader(std::chrono::milliseconds limit, std::function<QString()> findTool,
                           const Interrupt& quit)
    : m_limit(limit), m_findTool(std::move(findTool)), m_quit(quit)
{
}

QList<SubjectAndDate> FolderReader::read(const QString& folder, const QSet<QString>& extensions)
{
    const std::shared_lock inside(m_inside);
    if (m_quit.isRaised())
        return {};
    QStringList names = selectedPhotos(folder, extensions);
    const qsizetype selected = names.size();
    names.removeIf([](const QString& name) { return !isPrintedAsItIs(name); });
    std::optional<QList<SubjectAndDate>> rows =
        folderRows(output(folder, names), {names.begin(), names.end()});
    if (!rows)
        say(folder, QStringLiteral("the answer is no UTF-8"));
    else if (rows->size() < selected)
        say(folder, QStringLiteral("%1 of %2 photos not told of under their own names")
                        .arg(selected - rows->size())
                        .arg(selected));
    return std::move(rows).value_or(QList<SubjectAndDate>());
}

void FolderReader::wait()
{
    const std::unique_lock everybodyIsOut(m_inside);
}

QByteArray FolderReader::output(const QString& folder, const QStringList& names) const
{
    if (names.isEmpty())
        return {};
    const QString tool = m_findTool();
    if (!QFileInfo::exists(tool)) {
        diagnostic(QStringLiteral("❌ ExifTool not found at: ") + tool);
        return {};
    }
    QList<QByteArray> arguments = {"-T", "-FileName", "-Subject", "-DateTimeOriginal"};
    for (const QString& name : names)
        arguments.append("./" + encodeFileName(name));  // a bare name could be an option
    ChildCommand command = toolCommand(tool, arguments);
    command.workingDirectory = encodeFileName(folder);
    return runToolOnce(command, m_limit, m_quit);
}

}  // namespace morvak
