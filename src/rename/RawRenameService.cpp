#include "rename/RawRenameService.h"

#include "platform/Diagnostics.h"
#include "platform/FileCopy.h"
#include "rename/GivenNames.h"
#include "text/Lines.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>

namespace morvak {

namespace {

using Outcome = RawRenameResult::Outcome;
using CopyFailed = RawRenameResult::SkippedCopyFailed;

constexpr QLatin1StringView noSubject("-");
constexpr QLatin1StringView sidecarExtension(".xmp");
constexpr qsizetype leastDigits = 2;

struct SplitName {
    QString stem;
    QString extension;  // with its dot
};

SplitName splitName(const QString& fileName)
{
    const qsizetype dot = fileName.lastIndexOf(u'.');
    return dot < 0 ? SplitName{fileName, {}} : SplitName{fileName.first(dot), fileName.sliced(dot)};
}

/// One run's numbers and names.
class Run {
public:
    Run(const QString& sourceFolder, const QString& destinationFolder)
        : m_from(sourceFolder),
          m_to(destinationFolder, FolderHandle::Missing::IsMade),
          m_isOntoItself(m_from.isSameAs(m_to))
    {
        if (!m_isOntoItself)
            removeUnfinishedCopies(destinationFolder);
    }

    [[nodiscard]] Outcome copy(const SubjectAndDate& entry)
    {
        if (m_isOntoItself)
            return CopyFailed{QStringLiteral("de doelmap is de bronmap")};
        const std::optional<QString> base = RawRenameService::name(entry.subject);
        if (!base)
            return RawRenameResult::SkippedNoName{};
        const QString number = QString::number(++m_counters[*base]).rightJustified(leastDigits, u'0');
        const QString stem = *base + u'_' + number;
        const SplitName old = splitName(entry.fileName);
        const QString newName = stem + old.extension;
        if (const QString problem = copyFresh(entry.fileName, newName); !problem.isEmpty())
            return CopyFailed{problem};
        copySidecar(old.stem + sidecarExtension, stem + sidecarExtension);
        return RawRenameResult::Renamed{newName};
    }

private:
    void copySidecar(const QString& name, const QString& newName)
    {
        if (!m_from.contains(name))
            return;
        if (const QString problem = copyFresh(name, newName); !problem.isEmpty())
            diagnostic(QStringLiteral("⚠️ %1 is niet gekopieerd als %2: %3").arg(name, newName, problem));
    }

    QString copyFresh(const QString& name, const QString& newName)
    {
        if (m_given.isTaken(m_to, newName))
            return QStringLiteral("een andere kopie heeft op deze schijf al deze naam");
        const QString problem = copyFile(m_from, name, m_to, newName);
        if (problem.isEmpty())
            m_given.add(newName);
        return problem;
    }

    const FolderHandle m_from;
    const FolderHandle m_to;
    const bool m_isOntoItself;
    QHash<QString, qsizetype> m_counters;  // by base name
    GivenNames m_given;
};

bool isEarlier(const SubjectAndDate& a, const SubjectAndDate& b)
{
    return a.dateTimeOriginal < b.dateTimeOriginal;
}

}  // namespace

const QSet<QString>& RawRenameService::rawExtensions()
{
    static const QSet<QString> extensions = {
        QStringLiteral("cr3"), QStringLiteral("cr2"), QStringLiteral("nef"), QStringLiteral("nrw"),
        QStringLiteral("arw"), QStringLiteral("raf"), QStringLiteral("rw2"), QStringLiteral("orf"),
        QStringLiteral("dng"), QStringLiteral("fff"), QStringLiteral("3fr"), QStringLiteral("rwl"),
        QStringLiteral("raw"), QStringLiteral("jpg"), QStringLiteral("jpeg")};
    return extensions;
}

std::optional<QString> RawRenameService::name(const QString& fromSubject)
{
    static const QRegularExpression setPrefix(QStringLiteral("^Set\\s*\\d+\\s*[,—-]\\s*"),
                                              QRegularExpression::UseUnicodePropertiesOption);
    QString subject = trimmed(fromSubject).toString();
    if (subject == noSubject)
        return std::nullopt;
    const QStringView base = trimmed(subject.remove(setPrefix));
    return base.isEmpty() ? std::nullopt : std::optional(base.toString());
}

RawRenameSummary RawRenameService::run(const QString& sourceFolder, const QString& destinationFolder,
                                       const Progress& progress, const std::stop_token& giveUp) const
{
    RawRenameSummary summary;
    if (giveUp.stop_requested())
        return summary;
    Run run(sourceFolder, destinationFolder);
    FolderMetadata metadata = m_read(sourceFolder, rawExtensions(), {progress, giveUp});
    summary.unsendable = metadata.unsendable;
    summary.unread = metadata.failed;
    QList<SubjectAndDate>& entries = metadata.rows;
    std::stable_sort(entries.begin(), entries.end(), isEarlier);
    const auto report = [&] {
        if (progress)
            progress(summary.results.size(), entries.size());
    };
    report();
    for (const SubjectAndDate& entry : entries) {
        if (giveUp.stop_requested())
            break;
        summary.results.append({entry.fileName, run.copy(entry)});
        report();
    }
    return summary;
}

}  // namespace morvak
