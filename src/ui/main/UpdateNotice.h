#pragma once

#include <QPushButton>

namespace morvak {

struct UiServices;

/// Offers the download page of a newer version; hidden while none is known.
class UpdateNotice final : public QPushButton {
    Q_OBJECT

public:
    explicit UpdateNotice(UiServices& services, QWidget* parent = nullptr);

private:
    void showVersion();

    UiServices& m_services;
};

}  // namespace morvak
