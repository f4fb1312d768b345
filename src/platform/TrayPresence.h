#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

namespace morvak {

/// Whether the desktop shows tray icons right now.
///
/// A tray that goes or comes back announces itself over D-Bus (the StatusNotifierItem protocol); a tray of
/// the X11 kind (XEmbed) is looked for every few seconds while `setWatchful`. Main thread; waits for nobody.
class TrayPresence final : public QObject {
    Q_OBJECT

public:
    /// What the window system says of trays, and how often it is asked.
    struct Platform {
        std::function<bool()> hasTray;
        std::chrono::milliseconds secondLook{3000};
    };

    explicit TrayPresence(Platform platform, QObject* parent = nullptr);

    [[nodiscard]] bool isThere() const;

    /// Looks again by itself from time to time, and tells of a change from what is there now; for as long as
    /// it matters only.
    void setWatchful(bool watchful);

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void askForHost();

private:
    void observeBus();
    void takeHost(bool registered);
    void lookAgain();

    Platform m_platform;
    bool m_hostGone = false;  // a D-Bus tray was there and has left
    bool m_hostSeen = false;
    bool m_wasThere = false;
    QTimer m_timer;
};

}  // namespace morvak
