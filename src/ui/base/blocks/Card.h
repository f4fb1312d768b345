#pragma once

#include "ui/base/theme/Colors.h"

#include <QFrame>

class QHBoxLayout;
class QVBoxLayout;

namespace morvak {

class Theme;

/// A rounded box, with a title where it has one.
class Card final : public QFrame {
    Q_OBJECT

public:
    explicit Card(QWidget* parent = nullptr);
    /// The title stands above the content, the symbol (if any) before it; it is the accessible name as well.
    Card(const Theme& theme, const QString& title, const QString& symbol, QWidget* parent = nullptr,
         Role symbolRole = Role::text);

    /// Where the content goes, from top to bottom.
    [[nodiscard]] QVBoxLayout* content() const { return m_content; }
    /// Behind the title, for a button or a state; null without a title.
    [[nodiscard]] QHBoxLayout* titleRow() const { return m_titleRow; }

private:
    QHBoxLayout* m_titleRow = nullptr;
    QVBoxLayout* m_content;
};

}  // namespace morvak
