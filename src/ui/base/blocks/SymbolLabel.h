#pragma once

#include "ui/base/theme/Colors.h"

#include <QIcon>
#include <QWidget>

namespace morvak {

class Theme;

/// A symbol of a fixed size beside a text that says the same: accessibility skips it.
class SymbolLabel final : public QWidget {
    Q_OBJECT

public:
    SymbolLabel(const Theme& theme, const QString& symbol, int size, Role role = Role::text,
                QWidget* parent = nullptr);
    /// Any icon in its own colours, such as the logo.
    SymbolLabel(const QIcon& icon, int size, QWidget* parent = nullptr);

    void setIcon(const QIcon& icon);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QIcon m_icon;
};

}  // namespace morvak
