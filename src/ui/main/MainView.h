#pragma once

#include <QWidget>

#include <memory>

class QStackedWidget;

namespace morvak {

struct UiServices;
class ScanWatch;
class SegmentedSwitch;
class SetActivatedBanner;
class SetsView;

/// The main window: header, the state at a glance, and the tabs below it.
///
/// Hidden when it is closed; who owns it decides what happens then.
class MainView final : public QWidget {
    Q_OBJECT

public:
    explicit MainView(UiServices& services, QWidget* parent = nullptr);
    ~MainView() override;

    /// From left to right; the first is that of the sets.
    [[nodiscard]] QStringList tabTitles() const;

    /// An index into `tabTitles`.
    [[nodiscard]] int selectedTab() const;
    void setSelectedTab(int index);

    /// Opens a shoot file as a new shoot, or says that it cannot be read.
    void openShootFile(const QString& path);

    /// Shows the window, in front of all others.
    void bringToFront();

Q_SIGNALS:
    /// Before the first frame is drawn.
    void firstShown();
    void closed();
    void quitAsked();
    void qrGeneratorAsked();

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void makeTabs();
    void makeShortcuts();
    void showTab(int index);
    void showBanner();

    UiServices& m_services;
    SegmentedSwitch* m_switch = nullptr;
    QStackedWidget* m_content;
    SetsView* m_sets;
    SetActivatedBanner* m_banner;
    std::unique_ptr<ScanWatch> m_scans;  // goes before the window that it watches
    bool m_wasShown = false;
};

}  // namespace morvak
