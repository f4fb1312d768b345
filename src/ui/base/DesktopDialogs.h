#pragma once

#include "ui/base/Dialogs.h"

#include <QCoreApplication>

class QFileDialog;

namespace morvak {

/// The dialogs as the user sees them: the desktop's file chooser where it has one, else Qt's. They begin
/// where the last file or folder of this run was chosen.
class DesktopDialogs final : public Dialogs {
    Q_DECLARE_TR_FUNCTIONS(morvak::DesktopDialogs)

public:
    QString chooseFolder(QWidget* parent, const QString& title, const QString& acceptLabel,
                         const QString& startFolder) override;
    QString openFile(QWidget* parent, const QString& title, const QString& filter) override;
    QString saveFile(QWidget* parent, const QString& title, const QString& proposedName,
                     const QString& filter, const QString& extension) override;
    bool confirm(QWidget* parent, const QString& title, const QString& message,
                 const QString& destructiveLabel) override;
    void alert(QWidget* parent, const QString& title, const QString& message) override;

private:
    [[nodiscard]] QString chosenPath(QFileDialog& dialog);

    QString m_lastFolder;  // of this run
};

/// The path with the extension behind it, unless it ends with that in any case.
[[nodiscard]] QString withExtension(const QString& path, const QString& extension);

/// A proposed name as one name in a folder: a shoot may be called "voor/na".
[[nodiscard]] QString asFileName(const QString& proposedName);

}  // namespace morvak
