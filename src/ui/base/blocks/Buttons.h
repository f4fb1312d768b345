#pragma once

class QPushButton;
class QString;
class QWidget;

namespace morvak {

enum class ButtonKind {
    normal,
    primary,  ///< filled with the accent; one to a sheet or a bar
    danger,   ///< takes something away; never the default
    quiet,    ///< without a border until the pointer is over it
};

/// May be called again.
void setButtonKind(QPushButton& button, ButtonKind kind);

[[nodiscard]] QPushButton* makeButton(const QString& label, ButtonKind kind = ButtonKind::normal,
                                      QWidget* parent = nullptr);

}  // namespace morvak
