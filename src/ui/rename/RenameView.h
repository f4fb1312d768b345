#pragma once

#include "rename/RawRenameTask.h"
#include "ui/rename/RenameObstacle.h"

#include <QWidget>

class QLabel;
class QPushButton;

namespace morvak {

class Card;
class FolderRow;
class ReadableColumn;
class RenameResultModel;
class TaskProgress;
struct UiServices;

/// The tab "Hernoemen": copies tagged RAW files under names from their metadata.
///
/// The folders that were chosen are kept for this run of the program, the results until the next start.
class RenameView final : public QWidget {
    Q_OBJECT

public:
    explicit RenameView(UiServices& services, QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;

private:
    void addHeading();
    void addFolders();
    void addStart();
    void addResult();
    void choose(FolderRow& row, const QString& title, const QString& usual);
    [[nodiscard]] RenameObstacle obstacle() const;
    void showState();
    void start();
    void finished(const RawRenameSummary& summary);

    UiServices& m_services;
    RawRenameTask m_task;
    qsizetype m_total = 0;  // of the run
    bool m_gaveUp = false;
    ReadableColumn* m_column;
    FolderRow* m_source;
    FolderRow* m_destination;
    QPushButton* m_start;
    TaskProgress* m_progress;
    QLabel* m_hint;
    Card* m_result;
    QLabel* m_counts;
    QLabel* m_ending;
    QWidget* m_list;
    RenameResultModel* m_results;
};

}  // namespace morvak
