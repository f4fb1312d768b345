#pragma once

#include <QWidget>

namespace morvak {

class PathField;

/// A folder to choose: its label, its path, and the button that asks for it. A folder can be dropped on it.
class FolderRow final : public QWidget {
    Q_OBJECT

public:
    explicit FolderRow(const QString& label, QWidget* parent = nullptr);

    [[nodiscard]] const QString& folder() const { return m_folder; }  ///< empty until one is chosen
    void setFolder(const QString& path);

Q_SIGNALS:
    void chooseAsked();
    void folderChanged();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    QString m_folder;
    PathField* m_path;
};

}  // namespace morvak
