#pragma once

#include <QList>
#include <QWidget>

class QComboBox;
class QListView;
class QScrollArea;
class QStandardItemModel;

namespace morvak {

class Theme;
struct ManualSection;

/// The tab "Handleiding": the manual, with a list of its sections to jump to, beside it where there is room
/// and above it where there is not.
class ManualView final : public QWidget {
    Q_OBJECT

public:
    explicit ManualView(const Theme& theme, QWidget* parent = nullptr);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QScrollArea* makePage();
    QWidget* makeSection(const ManualSection& section);
    QListView* makeSectionList();
    QComboBox* makeSectionPicker();
    void jumpTo(int section);
    void showReached();
    void showSection(int section);

    const Theme& m_theme;
    QStandardItemModel* m_titles;
    QList<QWidget*> m_sections;
    QScrollArea* m_page;
    QListView* m_list;
    QComboBox* m_picker;
    bool m_following = false;  // the lists follow the page just now, and must not move it
};

}  // namespace morvak
