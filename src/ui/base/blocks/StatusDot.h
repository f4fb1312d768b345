#pragma once

#include <QWidget>

#include <optional>

class QLabel;

namespace morvak {

class Theme;

/// Whether something is going on, in shape and words: a filled dot and "Actief", a hollow one and "Gestopt".
class StatusDot final : public QWidget {
    Q_OBJECT

public:
    explicit StatusDot(const Theme& theme, QWidget* parent = nullptr);

    void setActive(bool active);
    [[nodiscard]] bool isActive() const { return m_active; }
    /// Stands instead of "Actief" or "Gestopt"; none brings these back, an empty text leaves the dot alone.
    void setStateText(const std::optional<QString>& text);
    [[nodiscard]] QString text() const;

private:
    void showText();

    bool m_active = false;
    std::optional<QString> m_stateText;
    QWidget* m_dot;
    QLabel* m_label;
};

}  // namespace morvak
