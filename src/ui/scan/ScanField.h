#pragma once

#include <QLineEdit>

namespace morvak {

/// Where set text is scanned, typed or pasted. It shows several lines as one, with " | " for each line break,
/// and gives them back as lines.
class ScanField final : public QLineEdit {
    Q_OBJECT

public:
    explicit ScanField(QWidget* parent = nullptr);

    /// What a person has put into the field: text, the cursor in it and what is selected.
    struct State {
        QString text;
        int cursor = 0;
        int selectionStart = -1;
        int selectionLength = 0;
    };
    /// Without the scan that is shown, as long as nobody has edited it.
    [[nodiscard]] State state() const;
    void setState(const State& state);

    /// Shows a scan behind what was there before, instead of what was selected.
    void showScan(const State& before, const QString& scan);

    /// The text as it was entered, line breaks as LF.
    [[nodiscard]] QString scanText() const;

    /// Text with line breaks as the field holds it, and back. Pure.
    [[nodiscard]] static QString asOneLine(const QString& text);
    [[nodiscard]] static QString asLines(const QString& text);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;

private:
    void joinLines();

    QString m_shown;       // with a scan
    QString m_beforeScan;  // of it
};

}  // namespace morvak
