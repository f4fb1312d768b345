#pragma once

#include "platform/TrayPresence.h"
#include "ui/main/MainView.h"
#include "ui/main/MenuBarView.h"

#include <QElapsedTimer>
#include <QSystemTrayIcon>

#include <memory>

namespace morvak {

class QRGeneratorView;

/// The windows of Morvak and the item in the tray, and which of them are to be seen: never none while Morvak
/// runs. The QR generator does not count, as no way leads from it to the others.
class Shell final : public QObject {
    Q_OBJECT

public:
    explicit Shell(UiServices& services, QObject* parent = nullptr);
    ~Shell() override;

    [[nodiscard]] MainView& mainView() { return m_main; }
    [[nodiscard]] MenuBarView& panel() { return m_panel; }

    void openMain();
    /// In front of all others, as it was left.
    void openGenerator();

Q_SIGNALS:
    void quitAsked();

private:
    [[nodiscard]] WindowFacts facts() const;
    void keepInSight();
    void togglePanel();
    void panelClosed();
    [[nodiscard]] bool mayQuit();

    UiServices& m_services;
    QSystemTrayIcon m_icon;
    TrayPresence m_tray;
    MainView m_main;
    MenuBarView m_panel;
    std::unique_ptr<QRGeneratorView> m_generator;  // from when it is first asked for
    QElapsedTimer m_panelLeft;
};

}  // namespace morvak
