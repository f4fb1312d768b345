#pragma once

#include "qr/CardExportTask.h"
#include "ui/base/blocks/SheetFrame.h"

class QLabel;
class QProgressBar;

namespace morvak {

class NoticeLine;
class SegmentedSwitch;
class SetChoiceModel;
struct UiServices;

/// Prints the cards of chosen sets of a shoot into one PDF. Closes when that is written; cannot be closed
/// while it is being written.
class BulkQRExportSheet final : public SheetFrame {
    Q_OBJECT

public:
    explicit BulkQRExportSheet(UiServices& services, const QList<SetData>& sets, const QString& shootName,
                               QWidget* window);

    /// What the primary button does: asks for a file and writes it.
    void accept() override;
    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void addExplanation();
    void addDensity();
    void addChoice();
    void addButtons();
    void showState();
    void exported(bool written);

    UiServices& m_services;
    QString m_shootName;
    QString m_path;  // of the last try
    SetChoiceModel* m_sets;
    CardExportTask m_task;
    QWidget* m_form;
    SegmentedSwitch* m_density;
    QPushButton* m_toggleAll;
    QLabel* m_count;
    NoticeLine* m_notice;
    QProgressBar* m_busy;
    QPushButton* m_cancel;
    QPushButton* m_export;
};

}  // namespace morvak
