#pragma once

#include <QStringList>

class QMimeData;
class QWidget;

namespace morvak {

struct UiServices;

/// The shoot in the file becomes a new, active one; the user is told, over `window`, when the file holds
/// none.
void openShootFile(UiServices& services, const QString& path, QWidget* window);

/// Paths of the shoot files among what is being dragged, by their extension.
[[nodiscard]] QStringList shootFilesIn(const QMimeData& data);
/// Likewise of the CSV files.
[[nodiscard]] QStringList csvFilesIn(const QMimeData& data);

}  // namespace morvak
