#include "ui/base/DesktopDialogs.h"

#include "ui/base/blocks/SheetFrame.h"
#include "ui/base/blocks/TextLook.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

/// `lastFolder` while it is there; not the folder that the program happens to have been started in.
QString usualFolder(const QString& lastFolder)
{
    if (!lastFolder.isEmpty() && QFileInfo(lastFolder).isDir())
        return lastFolder;
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return QFileInfo(pictures).isDir() ? pictures : QDir::homePath();
}

std::unique_ptr<QFileDialog> fileDialog(QWidget* parent, const QString& title, const QString& lastFolder,
                                        QFileDialog::AcceptMode mode = QFileDialog::AcceptOpen)
{
    auto dialog = std::make_unique<QFileDialog>(parent, title, usualFolder(lastFolder));
    dialog->setWindowModality(Qt::WindowModal);
    dialog->setAcceptMode(mode);  // sets labels of its own
    dialog->setLabelText(QFileDialog::Reject, DesktopDialogs::tr("Annuleer"));
    dialog->setLabelText(QFileDialog::LookIn, DesktopDialogs::tr("In:"));
    dialog->setLabelText(QFileDialog::FileName, DesktopDialogs::tr("Naam:"));
    dialog->setLabelText(QFileDialog::FileType, DesktopDialogs::tr("Soort:"));
    return dialog;
}

}  // namespace

QString DesktopDialogs::chosenPath(QFileDialog& dialog)
{
    if (dialog.exec() != QDialog::Accepted)
        return {};
    m_lastFolder = dialog.directory().absolutePath();
    return dialog.selectedFiles().value(0);
}

QString DesktopDialogs::chooseFolder(QWidget* parent, const QString& title, const QString& acceptLabel,
                                     const QString& startFolder)
{
    const auto dialog = fileDialog(parent, title, m_lastFolder);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    dialog->setLabelText(QFileDialog::Accept, acceptLabel);
    if (!startFolder.isEmpty())
        dialog->setDirectory(startFolder);
    return chosenPath(*dialog);
}

QString DesktopDialogs::openFile(QWidget* parent, const QString& title, const QString& filter)
{
    const auto dialog = fileDialog(parent, title, m_lastFolder);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilter(filter);
    dialog->setLabelText(QFileDialog::Accept, tr("Open"));
    return chosenPath(*dialog);
}

QString DesktopDialogs::saveFile(QWidget* parent, const QString& title, const QString& proposedName,
                                 const QString& filter, const QString& extension)
{
    const auto dialog = fileDialog(parent, title, m_lastFolder, QFileDialog::AcceptSave);
    dialog->setNameFilter(filter);
    dialog->setLabelText(QFileDialog::Accept, tr("Bewaar"));
    dialog->selectFile(asFileName(proposedName));
    const QString chosen = chosenPath(*dialog);
    if (chosen.isEmpty())
        return {};
    const QString path = withExtension(chosen, extension);
    // The chooser asked about the name as typed; with its extension it may be another file.
    const bool replacesUnasked = path != chosen && QFileInfo::exists(path);
    if (replacesUnasked && !confirm(parent, tr("“%1” bestaat al").arg(QFileInfo(path).fileName()),
                                    tr("Wil je het bestand vervangen?"), tr("Vervang")))
        return {};
    return path;
}

bool DesktopDialogs::confirm(QWidget* parent, const QString& title, const QString& message,
                             const QString& destructiveLabel)
{
    SheetFrame question(title, parent);
    question.content()->addWidget(makeText(message, TextStyle::body, Role::text, true));
    const QPushButton* const destroy = question.addSideButton(destructiveLabel, ButtonKind::danger);
    QObject::connect(destroy, &QPushButton::clicked, &question, &QDialog::accept);
    QPushButton* const cancel = question.setCancelButton(tr("Annuleer"));
    cancel->setDefault(true);
    cancel->setFocus();
    return question.exec() == QDialog::Accepted;
}

void DesktopDialogs::alert(QWidget* parent, const QString& title, const QString& message)
{
    SheetFrame sheet(title, parent);
    sheet.content()->addWidget(makeText(message, TextStyle::body, Role::text, true));
    sheet.setPrimaryButton(tr("OK"));
    sheet.exec();
}

QString withExtension(const QString& path, const QString& extension)
{
    const QString ending = u'.' + extension;
    return path.endsWith(ending, Qt::CaseInsensitive) ? path : path + ending;
}

QString asFileName(const QString& proposedName)
{
    QString name = proposedName;
    return name.replace(u'/', u'-');
}

}  // namespace morvak
