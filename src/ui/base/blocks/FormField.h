#pragma once

#include <QString>

class QLineEdit;
class QPushButton;
class QVBoxLayout;
class QWidget;

namespace morvak {

/// Appends a field under its label, which is its accessible name.
void addFormField(QVBoxLayout& content, const QString& label, QWidget* field);

/// Fills a field so that the beginning of a long text is what is seen of it.
void setFieldText(QLineEdit& field, const QString& text);

/// What was entered into a field, with a blank for the line breaks that were pasted with it: a set's card and
/// the spreadsheets have no room for them.
[[nodiscard]] QString enteredText(const QLineEdit& field);

/// Enables the button while there is anything in the field; while there is not, its tooltip says why.
void enableWhileFilled(QPushButton& button, const QLineEdit& field, const QString& whyNot);

}  // namespace morvak
