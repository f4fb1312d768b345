#include "ui/watch/WatchState.h"

#include <QCoreApplication>

namespace morvak {

WatchState watchState(const QString& watchPath, bool isWatching, bool folderMissing)
{
    if (watchPath.isEmpty())
        return WatchState::noFolder;
    if (isWatching)
        return WatchState::watching;
    return folderMissing ? WatchState::missing : WatchState::stopped;
}

QString statusText(WatchState state, bool refused)
{
    const auto tr = [](const char* text) { return QCoreApplication::translate("morvak::WatchState", text); };
    switch (state) {
        case WatchState::noFolder:
            return tr("Kies de map waarin de foto's binnenkomen, of sleep die map hierheen");
        case WatchState::watching:
            return tr("Actief — nieuwe bestanden worden automatisch getagd");
        case WatchState::missing:
            return tr("Map niet gevonden — Morvak gaat vanzelf verder zodra de map er weer is");
        case WatchState::stopped:
            return refused ? tr("Gestopt — deze map kan niet gevolgd worden")
                           : tr("Gestopt — nieuwe bestanden worden niet getagd");
    }
    return {};
}

bool offersResume(WatchState state)
{
    return state == WatchState::stopped;
}

}  // namespace morvak
