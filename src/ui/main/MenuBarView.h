#pragma once

#include "ui/base/blocks/CoalescedCall.h"
#include "ui/main/TrayRules.h"

#include <QWidget>

class QLabel;
class QVBoxLayout;

namespace morvak {

struct UiServices;
class StatusDot;

/// The panel: what Morvak is doing, and the way to everything else. Opens frameless beside the tray's icon,
/// or stands as an ordinary small window where there is no tray.
class MenuBarView final : public QWidget {
    Q_OBJECT

public:
    explicit MenuBarView(UiServices& services, QWidget* parent = nullptr);

    /// Frameless beside the icon; gone when the user turns to something else.
    void openBeside(const QRect& icon);
    void openAsWindow();

    [[nodiscard]] bool isOrdinaryWindow() const;

Q_SIGNALS:
    void mainWindowAsked();
    void qrGeneratorAsked();
    void quitAsked();
    /// The user has closed it; it is still there when it was an ordinary window.
    void closeAsked();
    void hidden();

protected:
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void addHeader(QVBoxLayout& column);
    void addState(QVBoxLayout& column);
    void addButtons(QVBoxLayout& column);
    void observe();
    void showState();
    void fitHeight();
    void stop();

    UiServices& m_services;
    StatusDot* m_watching;
    QLabel* m_tagged;
    QLabel* m_set;
    QLabel* m_items;
    CoalescedCall m_refresh;
};

}  // namespace morvak
