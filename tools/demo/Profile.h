#pragma once

#include "model/Shoot.h"

#include <QProcessEnvironment>
#include <QTemporaryDir>

namespace morvak::demo {

/// A user who exists only for the demonstration: a home with the folders of the XDG Base Directory
/// Specification and a folder for the photos, all below one temporary folder that goes with the object.
class Profile {
public:
    Profile();

    [[nodiscard]] bool isValid() const { return m_root.isValid(); }
    [[nodiscard]] QString photoFolder() const { return m_root.filePath(QStringLiteral("Fotos")); }

    /// For sockets and the like; only the user may enter it.
    [[nodiscard]] QString runtimeFolder() const { return m_root.filePath(QStringLiteral("runtime")); }

    /// The environment that this process had when the object was made, with the user's folders exchanged;
    /// without a display Qt gets none to look for.
    [[nodiscard]] const QProcessEnvironment& environment() const { return m_environment; }

    /// Makes the shoot that the program finds when it starts. Main thread.
    Shoot makeShoot(const QString& name, const QString& location, const QString& client) const;

private:
    [[nodiscard]] QString dataFolder() const { return m_root.filePath(QStringLiteral("data")); }

    QTemporaryDir m_root;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
};

}  // namespace morvak::demo
