#pragma once

#include <QWidget>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace morvak {

class Theme;

/// What stands where there is nothing yet: a symbol, what is missing, and what to do next.
class EmptyState final : public QWidget {
    Q_OBJECT

public:
    EmptyState(const Theme& theme, const QString& symbol, const QString& headline, const QString& hint = {},
               QWidget* parent = nullptr);

    void setHeadline(const QString& headline);
    /// An empty hint takes no room.
    void setHint(const QString& hint);
    /// The one thing to do here; may be called once.
    QPushButton* addButton(const QString& label);

private:
    QVBoxLayout* m_column;
    QLabel* m_headline;
    QLabel* m_hint;
};

}  // namespace morvak
