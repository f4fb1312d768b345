#include "engine/SaveReport.h"

#include "platform/Diagnostics.h"
#include "platform/StoreSaver.h"
#include "watch/FolderWatcher.h"

#include <QCoreApplication>

namespace morvak {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("morvak::SaveReport", text);
}

}  // namespace

void reportSaving(const StoreSaver& saver, FolderWatcher& watcher)
{
    const auto report = [&saver, &watcher, wasFailing = false]() mutable {
        const bool fails = !saver.problem().isEmpty();
        if (fails && !wasFailing)
            watcher.addLog(
                tr("⚠️ %1 is niet bewaard: %2 — zolang Morvak draait gaat niets verloren; het "
                   "bewaren wordt steeds opnieuw geprobeerd")
                    .arg(saver.path(), saver.problem()),
                LogType::warning);
        else if (!fails)
            watcher.addLog(tr("✅ %1 is weer bewaard, met alles wat intussen is ingevoerd").arg(saver.path()),
                           LogType::success);
        wasFailing = fails;
    };
    QObject::connect(&saver, &StoreSaver::problemChanged, &watcher, report);
}

void reportUnsaved(const StoreSaver& saver)
{
    if (!saver.problem().isEmpty())
        diagnostic(tr("❌ %1 is bij het afsluiten niet bewaard: %2").arg(saver.path(), saver.problem()));
}

}  // namespace morvak
