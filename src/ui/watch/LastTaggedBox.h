#pragma once

#include "ui/base/blocks/CoalescedCall.h"

#include <QWidget>

namespace morvak {

class ElidedLabel;
class ThumbnailStrip;
struct UiServices;

/// The box "Laatst getagd": the last photo's name, and the last photos as they look.
class LastTaggedBox final : public QWidget {
    Q_OBJECT

public:
    explicit LastTaggedBox(UiServices& services, QWidget* parent = nullptr);

private:
    void refresh();

    UiServices& m_services;
    ElidedLabel* m_name;
    ThumbnailStrip* m_thumbnails;
    CoalescedCall m_refresh;
};

}  // namespace morvak
