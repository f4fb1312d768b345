#pragma once

#include <QWidget>

class QLineEdit;

namespace morvak {

class IconButton;
class Theme;

/// Where the user types what to look for among the sets. Esc or the button behind it clears it; Return and
/// Down go on to what was found.
class SearchField final : public QWidget {
    Q_OBJECT

public:
    explicit SearchField(const Theme& theme, QWidget* parent = nullptr);

    [[nodiscard]] QString text() const;
    void clear();
    /// With all of its text selected.
    void focusField();

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void textChanged(const QString& text);
    void resultsAsked();
    /// Esc in the empty field.
    void left();

private:
    bool takeKey(int key);

    QLineEdit* m_field;
    IconButton* m_clear;
};

}  // namespace morvak
