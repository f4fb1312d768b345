#pragma once

#include <QWidget>

class QPushButton;
class QStackedLayout;

namespace morvak {

class LogModel;
struct UiServices;

/// The tab "Log": what the watcher has done, newest first.
class LogTab final : public QWidget {
    Q_OBJECT

public:
    explicit LogTab(UiServices& services, QWidget* parent = nullptr);

private:
    void showContent();

    LogModel* m_model;
    QPushButton* m_clear;
    QStackedLayout* m_content;
};

}  // namespace morvak
