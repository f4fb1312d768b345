#pragma once

#include <QWidget>

namespace morvak {

struct UiServices;

/// The window that makes the code of one card without a shoot.
class QRGeneratorView final : public QWidget {
    Q_OBJECT

public:
    explicit QRGeneratorView(UiServices& services, QWidget* parent = nullptr);
};

}  // namespace morvak
