#pragma once

#include <QScrollArea>

namespace morvak {

class WatchFolderBox;
struct UiServices;

/// The tab "Watch Folder": the folder, the active set and the last photos. A folder that is dropped on it is
/// watched.
class DashboardTab final : public QScrollArea {
    Q_OBJECT

public:
    explicit DashboardTab(UiServices& services, QWidget* parent = nullptr);

Q_SIGNALS:
    /// The user wants a shoot, because there is none to remember the folder.
    void newShootAsked();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    WatchFolderBox* m_folder;
};

}  // namespace morvak
