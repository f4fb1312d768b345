#include "metadata/FolderReader.h"

#include "metadata/NameBatches.h"
#include "metadata/OneShotRun.h"
#include "metadata/ToolEnvironment.h"
#include "platform/Diagnostics.h"
#include "platform/FileName.h"
#include "platform/PhotoFile.h"

#include <QFileInfo>

#include <algorithm>
#include <mutex>

namespace morvak {

namespace {

constexpr int mostFailuresInARow = 2;

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
    std::sort(names.begin(), names.end());
    return names;
}

void report(const ReadingControl& control, qsizetype done, qsizetype total)
{
    if (control.progress)
        control.progress(done, total);
}

}  // namespace

FolderReader::FolderReader(const FolderLimits& limits, std::function<QString()> findTool,
                           const Interrupt& quit)
    : m_limits(limits), m_findTool(std::move(findTool)), m_quit(quit)
{
}

FolderMetadata FolderReader::read(const QString& folder, const QSet<QString>& extensions,
                                  const ReadingControl& control)
{
    const std::shared_lock inside(m_inside);
    if (m_quit.isRaised())
        return {};
    FolderMetadata result;
    QStringList names = selectedPhotos(folder, extensions);
    result.unsendable = names.removeIf([](const QString& name) { return !isPrintedAsItIs(name); });
    result.rows = rowsOf(folder, names, control);
    std::sort(result.rows.begin(), result.rows.end(),
              [](const SubjectAndDate& a, const SubjectAndDate& b) { return a.fileName < b.fileName; });
    if (m_quit.isRaised())
        return {};
    result.failed = names.size() - result.rows.size();
    if (const qsizetype left = result.failed + result.unsendable; left > 0)
        say(folder, QStringLiteral("%1 of %2 photos not told of under their own names")
                        .arg(left)
                        .arg(result.total()));
    return result;
}

void FolderReader::wait()
{
    const std::unique_lock everybodyIsOut(m_inside);
}

QList<SubjectAndDate> FolderReader::rowsOf(const QString& folder, const QStringList& names,
                                           const ReadingControl& control) const
{
    QList<SubjectAndDate> rows;
    qsizetype done = 0;
    int failuresInARow = 0;
    for (const QStringList& batch : nameBatches(names, m_limits.names, m_limits.nameBytes)) {
        report(control, done, names.size());
        if (failuresInARow == mostFailuresInARow || control.giveUp.stop_requested())
            return rows;
        const std::optional<QList<SubjectAndDate>> more = batchRows(folder, batch);
        failuresInARow = more ? 0 : failuresInARow + 1;
        rows += more.value_or(QList<SubjectAndDate>());
        done += batch.size();
    }
    report(control, done, names.size());
    return rows;
}

/// None when the tool did not tell.
std::optional<QList<SubjectAndDate>> FolderReader::batchRows(const QString& folder,
                                                             const QStringList& names) const
{
    const QString tool = m_findTool();
    if (!QFileInfo::exists(tool)) {
        diagnostic(QStringLiteral("❌ ExifTool not found at: ") + tool);
        return std::nullopt;
    }
    QList<QByteArray> arguments = {"-T", "-FileName", "-Subject", "-DateTimeOriginal"};
    for (const QString& name : names)
        arguments.append("./" + encodeFileName(name));  // a bare name could be an option
    ChildCommand command = toolCommand(tool, arguments);
    command.workingDirectory = encodeFileName(folder);
    const ToolAnswer answer = runToolOnce(command, m_limits.answer, m_quit);
    if (answer.kind != ToolAnswer::Kind::Printed)
        return std::nullopt;
    std::optional<QList<SubjectAndDate>> rows = folderRows(answer.printed, {names.begin(), names.end()});
    if (!rows)
        say(folder, QStringLiteral("the answer is no UTF-8"));
    return rows;
}

}  // namespace morvak
