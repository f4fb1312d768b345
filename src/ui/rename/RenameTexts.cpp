#include "ui/rename/RenameTexts.h"

using namespace Qt::StringLiterals;

namespace morvak {

using Renamed = RawRenameResult::Renamed;
using CopyFailed = RawRenameResult::SkippedCopyFailed;

RenameTexts::Line RenameTexts::line(const RawRenameResult& result)
{
    if (const auto* const renamed = std::get_if<Renamed>(&result.outcome))
        return {u"arrow.right.circle.fill"_s, Role::success, renamed->newName};
    if (const auto* const failed = std::get_if<CopyFailed>(&result.outcome))
        return {u"xmark.circle.fill"_s, Role::danger, tr(" — kopiëren mislukt: ") + failed->text};
    return {u"questionmark.circle.fill"_s, Role::warning, tr(" — geen naam in metadata gevonden")};
}

QString RenameTexts::plain(const RawRenameResult& result)
{
    const bool renamed = std::holds_alternative<Renamed>(result.outcome);
    return result.originalFileName + (renamed ? u" → "_s : QString()) + line(result).rest;
}

QString RenameTexts::counts(const RawRenameSummary& summary)
{
    const qsizetype renamed = summary.renamedCount();
    return QString::number(renamed) + tr(" hernoemd, ") + QString::number(summary.results.size() - renamed) +
           tr(" overgeslagen.");
}

QString RenameTexts::ending(const RawRenameSummary& summary, const RenameEnd& end)
{
    const qsizetype done = summary.results.size();
    if (end.gaveUp && (done < end.total || end.total == 0))
        return end.total == 0 ? tr("Gestopt voordat er een bestand gekopieerd was.")
                              : tr("Gestopt: %1 van %2 bestanden gedaan.").arg(done).arg(end.total);
    if (const QString text = leftOut(summary); !text.isEmpty())
        return text;
    return done > 0 ? QString() : tr("Geen RAW- of JPEG-bestanden gevonden in de bronmap.");
}

QString RenameTexts::leftOut(const RawRenameSummary& summary)
{
    QStringList texts;
    if (summary.unread > 0)
        texts.append(
            tr("Niet gekopieerd omdat de metadata niet gelezen kon worden: %1. Begin opnieuw als alle "
               "foto's mee moeten: de nummers kunnen dan anders worden.")
                .arg(summary.unread));
    if (summary.unsendable > 0)
        texts.append(tr("Niet gekopieerd omdat hun bestandsnaam niet leesbaar is (een regeleinde of een "
                        "onbekend teken): %1.")
                         .arg(summary.unsendable));
    return texts.join(u' ');
}

}  // namespace morvak
