#pragma once

#include "ui/blocks/CoalescedCall.h"

#include <QUuid>
#include <QWidget>

class QLabel;
class QStackedLayout;
class QVBoxLayout;

namespace morvak {

class ElidedLabel;
class NoticeLine;
class ScanBar;
class SetListModel;
struct UiServices;

/// The tab "Sets": chooses the shoot, takes scans, lists the sets of the active shoot and activates them.
class SetsView final : public QWidget {
    Q_OBJECT

public:
    explicit SetsView(UiServices& services, QWidget* parent = nullptr);

    /// Asks for a new shoot.
    void makeShoot();

    /// Asks for a shoot file, and opens it.
    void chooseShootFile();

    void focusScanField();
    [[nodiscard]] ScanBar& scanBar() { return *m_scan; }

private:
    void addShootBar(QVBoxLayout& column);
    void addFolderLine(QVBoxLayout& column);
    void addList(QVBoxLayout& column);
    void showShoot();
    void activate(QUuid setId);

    UiServices& m_services;
    ElidedLabel* m_folder;
    QLabel* m_statistics;
    ScanBar* m_scan;
    NoticeLine* m_notice;
    SetListModel* m_model;
    QStackedLayout* m_content;
    CoalescedCall m_refresh;
};

}  // namespace morvak
