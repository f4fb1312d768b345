#pragma once

#include "ui/base/theme/Colors.h"

#include <QToolButton>

namespace morvak {

class Theme;

/// A square button that shows a symbol. Its help text is its tooltip and its accessible name.
class IconButton final : public QToolButton {
    Q_OBJECT

public:
    IconButton(const Theme& theme, const QString& symbol, const QString& help, QWidget* parent = nullptr,
               Role role = Role::text);

    void setSymbol(const QString& symbol, Role role = Role::text);
    void setHelp(const QString& help);

private:
    const Theme& m_theme;
};

}  // namespace morvak
