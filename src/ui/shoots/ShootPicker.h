#pragma once

#include <QComboBox>

namespace morvak {

class ShootManager;

/// Shows the active shoot and makes the picked one active. The wheel is left to what lies below: a shoot must
/// not change because somebody scrolled past.
class ShootPicker final : public QComboBox {
    Q_OBJECT

public:
    explicit ShootPicker(ShootManager& shoots, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void showShoots();

    ShootManager& m_shoots;
};

}  // namespace morvak
