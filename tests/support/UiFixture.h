#pragma once

#include "catalog/ProductCatalog.h"
#include "rename/RawRenameService.h"
#include "support/PrivateUpdates.h"
#include "support/WatcherFixture.h"
#include "ui/base/Dialogs.h"
#include "ui/base/UiServices.h"
#include "ui/base/theme/Theme.h"
#include "update/UpdateChecker.h"

#include <QAbstractButton>
#include <QLabel>
#include <QTextDocumentFragment>

namespace morvak::test {

/// Answers that a test has given before, and what was asked.
class ScriptedDialogs final : public Dialogs {
public:
    QString chooseFolder(QWidget*, const QString& title, const QString& acceptLabel,
                         const QString& startFolder) override
    {
        asked = {title, acceptLabel, startFolder};
        return folder;
    }
    QString openFile(QWidget*, const QString&, const QString&) override { return file; }
    QString saveFile(QWidget*, const QString&, const QString& proposedName, const QString& filter,
                     const QString& extension) override
    {
        asked = {proposedName, filter, extension};
        return saved;
    }
    bool confirm(QWidget*, const QString& title, const QString& message,
                 const QString& destructiveLabel) override
    {
        asked = {title, message, destructiveLabel};
        return confirms;
    }
    void alert(QWidget*, const QString& title, const QString& message) override
    {
        alerts << title << message;
    }

    QString folder;         ///< to choose
    QString file;           ///< to open
    QString saved;          ///< where to save
    bool confirms = false;  ///< the answer to destructive questions
    QStringList asked;      ///< texts of the last question
    QStringList alerts;     ///< titles and messages
};

/// What a screen is handed, on a watcher whose events are scripted.
class UiFixture : public WatcherFixture {
public:
    Theme theme;
    ScriptedDialogs dialogs;
    UpdateChecker updates{privateUpdates(data.filePath(QStringLiteral("preferences")))};
    int toolStarts = 0;
    ProductCatalog catalog{data.filePath(QStringLiteral("catalog.json"))};
    QList<SubjectAndDate> taggedPhotos;  ///< what the tool reads from whatever folder
    RawRenameService::Reading readFolder = [this](const QString&, const QSet<QString>&,
                                                  const ReadingControl&) {
        return FolderMetadata{taggedPhotos};
    };
    RawRenameService rename{
        [this](const QString& in, const QSet<QString>& extensions, const ReadingControl& control) {
            return readFolder(in, extensions, control);
        }};
    UiServices ui{store,
                  *watcher,
                  catalog,
                  updates,
                  theme,
                  dialogs,
                  QStringLiteral("1.0.0"),
                  [this] { ++toolStarts; },
                  [] {},
                  rename,
                  [](const QUrl&) {}};
};

/// What the labels and buttons of a screen say that are not hidden in it.
inline QStringList shownTexts(const QWidget& screen)
{
    QStringList texts;
    for (const QWidget* widget : screen.findChildren<QWidget*>()) {
        if (!widget->isVisibleTo(&screen))
            continue;
        if (const auto* const label = qobject_cast<const QLabel*>(widget))
            texts.append(label->textFormat() == Qt::RichText
                             ? QTextDocumentFragment::fromHtml(label->text()).toPlainText()
                             : label->text());
        else if (const auto* const button = qobject_cast<const QAbstractButton*>(widget))
            texts.append(button->text());
    }
    return texts;
}

}  // namespace morvak::test
