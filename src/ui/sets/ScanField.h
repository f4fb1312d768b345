#pragma once

#include <QLineEdit>

namespace morvak {

/// Where set text is scanned, typed or pasted. It shows several lines as one, with " | " for each line break,
/// and gives them back as lines.
class ScanField final : public QLineEdit {
    Q_OBJECT

public:
    explicit ScanField(QWidget* parent = nullptr);

    /// What the field holds at a moment: text, the cursor in it and what is selected.
    struct State {
        QString text;
        int cursor = 0;
        int selectionStart = -1;
        int selectionLength = 0;
    };
    [[nodiscard]] State state() const;
    void setState(const State& state);

    /// What is shown of a scan: behind what was there before, instead of what was selected.
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
};

}  // namespace morvak
