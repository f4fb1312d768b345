#pragma once

#include "ui/base/theme/Colors.h"

#include <QWidget>

class QLabel;
class QPlainTextEdit;

namespace morvak {

class Dialogs;

/// Where a CSV text is pasted or taken from a file: what it has to look like, the text itself, the choice of
/// a file, and a line that tells what came of it. A file can be dropped on the text, too.
class ImportPane final : public QWidget {
    Q_OBJECT

public:
    struct Texts {
        QString help;
        QString example;
    };

    ImportPane(Dialogs& dialogs, const Texts& texts, QWidget* parent = nullptr);

    [[nodiscard]] QString text() const;
    [[nodiscard]] bool isEmpty() const;
    void setText(const QString& text);
    /// May be given another height.
    [[nodiscard]] QWidget* editor() const;

    /// Replaces the text by that of the file; where the file holds none, tells so and leaves the text alone.
    void takeFile(const QString& path);

    /// Stays until the text changes.
    void showResult(const QString& result, Role role = Role::success);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void textChanged();

private:
    void chooseFile();

    Dialogs& m_dialogs;
    QPlainTextEdit* m_editor;
    QLabel* m_result;
};

}  // namespace morvak
