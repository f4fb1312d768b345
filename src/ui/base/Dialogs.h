#pragma once

#include <QString>

class QWidget;

namespace morvak {

/// The user's answers, asked for in one place so that tests can give them. Every question is modal to the
/// window that `parent` stands in.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    /// An existing folder; empty when the user cancels.
    [[nodiscard]] virtual QString chooseFolder(QWidget* parent, const QString& title,
                                               const QString& acceptLabel, const QString& startFolder) = 0;

    /// An existing file; empty when the user cancels. `filter` as in "Shoots (*.morvak)".
    [[nodiscard]] virtual QString openFile(QWidget* parent, const QString& title, const QString& filter) = 0;

    /// Adds the extension (without its dot) when it is missing, asks before it replaces; empty when the user
    /// cancels.
    [[nodiscard]] virtual QString saveFile(QWidget* parent, const QString& title, const QString& proposedName,
                                           const QString& filter, const QString& extension) = 0;

    /// A destructive question, with the destructive button never the default.
    [[nodiscard]] virtual bool confirm(QWidget* parent, const QString& title, const QString& message,
                                       const QString& destructiveLabel) = 0;

    virtual void alert(QWidget* parent, const QString& title, const QString& message) = 0;
};

}  // namespace morvak
