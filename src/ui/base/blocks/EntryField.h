#pragma once

#include <QLineEdit>

class QPushButton;

namespace morvak {

/// A field with a button of its own: Return presses that one, while it is enabled, and never the sheet's.
class EntryField final : public QLineEdit {
    Q_OBJECT

public:
    /// `button` outlives the field, or goes with it.
    EntryField(const QString& placeholder, QPushButton* button, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QPushButton* m_button;
};

}  // namespace morvak
