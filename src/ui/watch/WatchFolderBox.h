#pragma once

#include "ui/base/blocks/CoalescedCall.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace morvak {

class ElidedLabel;
class PathField;
class StatusDot;
class SymbolLabel;
struct LogEntry;
struct UiServices;

/// The box "Watch Folder": which folder is watched and how that goes, choosing and resuming, the last
/// failure, and what happens with a photographed set card.
class WatchFolderBox final : public QWidget {
    Q_OBJECT

public:
    explicit WatchFolderBox(UiServices& services, QWidget* parent = nullptr);

    /// Watches the folder, with the tool running. A folder that cannot be watched is told in the status line.
    void watch(const QString& path);

Q_SIGNALS:
    /// There is no shoot to remember the folder, and the user wants one.
    void newShootAsked();

private:
    void addFolderRow(QVBoxLayout& box);
    void addStatusRow(QVBoxLayout& box);
    void addFailureLine(QVBoxLayout& box);
    void addShootHint(QVBoxLayout& box);
    void addToggles(QVBoxLayout& box);
    QCheckBox* addToggle(QVBoxLayout& box, const QString& label, const QString& explanation);
    void followWatcher();
    void chooseFolder();
    void refresh();
    void showStatus();
    void showFailure();

    UiServices& m_services;
    PathField* m_path;
    StatusDot* m_dot;
    QLabel* m_status;
    QPushButton* m_resume;
    QWidget* m_failure;
    SymbolLabel* m_failureMarker;
    ElidedLabel* m_failureText;
    QWidget* m_shootHint;
    QString m_refused;  // the folder that could not be watched when we last tried
    CoalescedCall m_refresh;
};

}  // namespace morvak
