#pragma once

#include "model/Shoot.h"

#include <QProcessEnvironment>
#include <QTemporaryDir>

namespace morvak::driver {

/// A user who exists only for one run of the program: a home with the folders of the XDG Base Directory
/// Specification and a folder for the photos, all below one temporary folder that goes with the object.
class Profile {
public:
    /// The application must exist: the temporary folder bears its name.
    Profile();

    [[nodiscard]] bool isValid() const { return m_root.isValid(); }
    [[nodiscard]] QString photoFolder() const { return m_root.filePath(QStringLiteral("Fotos")); }

    /// Where the program keeps the shoots.
    [[nodiscard]] QString storeFile() const;

    /// A place for what the photos' folder shall not hold.
    [[nodiscard]] QString elsewhere(const QString& name) const { return m_root.filePath(name); }

    /// The environment that this process had when the object was made, with the user's folders exchanged;
    /// without a display Qt gets none to look for.
    [[nodiscard]] const QProcessEnvironment& environment() const { return m_environment; }

    /// Makes the shoot that the program finds when it starts. Main thread.
    Shoot makeShoot(const QString& name, const QString& location, const QString& client) const;

private:
    QTemporaryDir m_root;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
};

}  // namespace morvak::driver
