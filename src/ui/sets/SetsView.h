#pragma once

#include "ui/shoots/SetsActions.h"

#include <QUuid>
#include <QWidget>

#include <optional>

class QBoxLayout;

namespace morvak {

class BacklogBar;
class NoticeLine;
class ScanBar;
class SearchField;
class SetBar;
class SetsButtons;
class SetsContent;
class SetsSheets;
enum class ShootExport;
enum class SetRowAction;
struct Notice;
struct UiServices;

/// The tab "Sets": chooses the shoot, takes scans, lists the sets of the active shoot and activates them, and
/// is where everything is done with shoots and sets. A CSV file that is dropped on it is imported.
class SetsView final : public QWidget {
    Q_OBJECT

public:
    explicit SetsView(UiServices& services, QWidget* parent = nullptr);

    /// Does it, or tells in a quiet line why it cannot be done now.
    void perform(SetsAction action);

    void focusScanField();
    [[nodiscard]] ScanBar& scanBar() { return *m_scan; }
    void focusSearch();

Q_SIGNALS:
    void qrGeneratorAsked();

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    QBoxLayout* makeColumn();
    void addFields(QBoxLayout& column);
    void followStore();
    void followUser();

    void showShoot();
    void showFacts();
    void reveal(QUuid setId);
    void tell(const Notice& notice);

    void performOnSet(SetRowAction action, QUuid setId);
    void exportAs(ShootExport kind);
    void openShootFile();
    void processExisting();
    void takeDrop(const QStringList& csvFiles);

    UiServices& m_services;
    SetsButtons* m_buttons;
    SetsSheets* m_sheets;
    BacklogBar* m_backlog;
    SetBar* m_setBar;
    ScanBar* m_scan;
    SearchField* m_search;
    NoticeLine* m_notice;
    QBoxLayout* m_fields = nullptr;
    SetsContent* m_content;
    std::optional<QUuid> m_shownShoot;
    bool m_wasShown = false;
};

}  // namespace morvak
