#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

namespace morvak {

/// How far a long task has come, beside the button that started it: a bar, "12 van 348", and a button to give
/// it up. Hidden until `begin`; its room is kept, so nothing jumps.
class TaskProgress final : public QWidget {
    Q_OBJECT

public:
    /// `task` names the task for accessibility.
    explicit TaskProgress(const QString& task, QWidget* parent = nullptr);

    /// Shows that the task is under way and its size not known yet.
    void begin();
    void setProgress(qint64 done, qint64 total);
    void end();

Q_SIGNALS:
    /// Once for each `begin`, at most; from then on it shows that the task is ending.
    void giveUpAsked();

private:
    void giveUp();

    QProgressBar* m_bar;
    QLabel* m_count;
    QPushButton* m_giveUp;
};

}  // namespace morvak
