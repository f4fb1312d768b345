#pragma once

#include <QWidget>

namespace morvak {

class ScanField;
struct UiServices;

/// The field in which a set is scanned, typed or pasted, and the button that activates it.
class ScanBar final : public QWidget {
    Q_OBJECT

public:
    explicit ScanBar(UiServices& services, QWidget* parent = nullptr);

    [[nodiscard]] ScanField& field() { return *m_field; }
    void focusField();

    /// Takes what a scanner has typed, for itself: what was typed into the field by hand stays there.
    void takeScanned(const QString& text);

Q_SIGNALS:
    /// The text held no set.
    void notUnderstood();

private:
    void submit();

    UiServices& m_services;
    ScanField* m_field;
};

}  // namespace morvak
