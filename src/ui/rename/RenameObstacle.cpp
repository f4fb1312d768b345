#include "ui/rename/RenameObstacle.h"

#include <QCoreApplication>

namespace morvak {

namespace {

bool areSame(const std::optional<FolderPlace>& one, const std::optional<FolderPlace>& other)
{
    return one && other && one->isSameFolderAs(*other);
}

}  // namespace

RenameObstacle renameObstacle(const RenameFacts& facts)
{
    if (facts.isRunning)
        return RenameObstacle::running;
    if (facts.source.isEmpty())
        return RenameObstacle::noSource;
    if (!facts.sourcePlace)
        return RenameObstacle::sourceGone;
    if (facts.destination.isEmpty())
        return RenameObstacle::noDestination;
    if (!facts.destinationPlace)
        return RenameObstacle::destinationGone;
    if (areSame(facts.sourcePlace, facts.destinationPlace))
        return RenameObstacle::sameFolder;
    if (areSame(facts.watchedPlace, facts.destinationPlace))
        return RenameObstacle::destinationWatched;
    return RenameObstacle::none;
}

QString obstacleText(RenameObstacle obstacle)
{
    const auto tr = [](const char* text) {
        return QCoreApplication::translate("morvak::RenameObstacle", text);
    };
    switch (obstacle) {
        case RenameObstacle::none:
            return {};
        case RenameObstacle::running:
            return tr("Het hernoemen is bezig.");
        case RenameObstacle::noSource:
            return tr("Kies eerst de bronmap: de map met de getagde foto's.");
        case RenameObstacle::sourceGone:
            return tr("De bronmap kan niet geopend worden. Sluit de schijf weer aan of kies een andere map.");
        case RenameObstacle::noDestination:
            return tr("Kies nog de doelmap: daar komen de kopieën.");
        case RenameObstacle::destinationGone:
            return tr("De doelmap kan niet geopend worden. Sluit de schijf weer aan of kies een andere map.");
        case RenameObstacle::sameFolder:
            return tr("De doelmap is de bronmap. Kies een andere doelmap.");
        case RenameObstacle::destinationWatched:
            return tr(
                "De doelmap is de map die Morvak volgt: de kopieën zouden opnieuw getagd worden. "
                "Kies een andere doelmap.");
    }
    return {};
}

bool isWrong(RenameObstacle obstacle)
{
    switch (obstacle) {
        case RenameObstacle::none:
        case RenameObstacle::running:
        case RenameObstacle::noSource:
        case RenameObstacle::noDestination:
            return false;
        default:
            return true;
    }
}

}  // namespace morvak
