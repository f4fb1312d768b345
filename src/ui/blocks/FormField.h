#pragma once

class QString;
class QVBoxLayout;
class QWidget;

namespace morvak {

/// Appends a field under its label, which is its accessible name.
void addFormField(QVBoxLayout& content, const QString& label, QWidget* field);

}  // namespace morvak
