#include "ui/shoots/SetsActions.h"

using namespace Qt::StringLiterals;

namespace morvak {

QString SetsActionTexts::label(SetsAction action)
{
    switch (action) {
        case SetsAction::newShoot:
            return tr("Nieuwe Shoot");
        case SetsAction::deleteShoot:
            return {};  // a symbol
        case SetsAction::clients:
            return tr("Klanten");
        case SetsAction::importCsv:
            return tr("Import CSV");
        case SetsAction::exportCsv:
            return tr("Export CSV");
        case SetsAction::exportJson:
            return tr("Export JSON");
        case SetsAction::qrGenerator:
            return tr("QR Generator");
        case SetsAction::bulkExport:
            return tr("Bulk QR-export");
        case SetsAction::catalog:
            return tr("Productcatalogus");
        case SetsAction::processExisting:
            return tr("Verwerk bestaande bestanden");
        case SetsAction::newSet:
            return tr("+ Set");
        case SetsAction::openShootFile:
            return tr("Open...");
        case SetsAction::saveShootFile:
            return tr("Bewaar...");
    }
    Q_UNREACHABLE();
}

QString SetsActionTexts::help(SetsAction action)
{
    switch (action) {
        case SetsAction::deleteShoot:
            return tr("Shoot verwijderen (inclusief alle sets erin)");
        case SetsAction::clients:
            return tr("Klanten beheren, kiesbaar bij een nieuwe shoot en in de productcatalogus");
        case SetsAction::openShootFile:
            return tr("Open een .morvak-bestand, bijv. een shoot voorbereid in Morvak Prep");
        case SetsAction::saveShootFile:
            return tr("Bewaar de volledige shoot als .morvak-bestand, te openen in Morvak of Morvak Prep");
        default:
            return {};
    }
}

QKeySequence SetsActionTexts::keys(SetsAction action)
{
    switch (action) {
        case SetsAction::newShoot:
            return Qt::CTRL | Qt::SHIFT | Qt::Key_N;
        case SetsAction::newSet:
            return Qt::CTRL | Qt::Key_N;
        case SetsAction::openShootFile:
            return Qt::CTRL | Qt::Key_O;
        case SetsAction::saveShootFile:
            return Qt::CTRL | Qt::Key_S;
        default:
            return {};
    }
}

QString SetsActionTexts::reasonAgainst(SetsAction action, const SetsFacts& facts)
{
    switch (action) {
        case SetsAction::newShoot:
        case SetsAction::clients:
        case SetsAction::qrGenerator:
        case SetsAction::bulkExport:
        case SetsAction::catalog:
        case SetsAction::openShootFile:
            return {};
        case SetsAction::processExisting:
            if (facts.isProcessing)
                return tr("De bestaande bestanden worden al verwerkt.");
            if (facts.hasShoot && !facts.hasFolder)
                return tr("Deze shoot heeft nog geen watch folder: kies er een op het tabblad Watch Folder.");
            if (facts.hasShoot && facts.folderMissing)
                return tr("De watch folder van deze shoot is nu niet te vinden.");
            [[fallthrough]];
        default:
            return facts.hasShoot ? QString() : tr("Maak of kies eerst een shoot.");
    }
}

QString SetsActionTexts::toolTip(SetsAction action, const SetsFacts& facts)
{
    if (const QString reason = reasonAgainst(action, facts); !reason.isEmpty())
        return reason;
    const QString text = help(action);
    const QString shortcut = keys(action).toString(QKeySequence::NativeText);
    if (text.isEmpty() || shortcut.isEmpty())
        return text + shortcut;
    return text + u" ("_s + shortcut + u')';
}

}  // namespace morvak
