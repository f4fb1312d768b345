#pragma once

#include "ui/base/blocks/CoalescedCall.h"
#include "ui/main/HeaderState.h"

#include <QFrame>

class QLabel;

namespace morvak {

struct UiServices;
class ElidedLabel;

/// What must be seen from two metres: whether the folder is being watched, which set photos get, what went
/// wrong last, and that something cannot be saved for as long as that lasts.
///
/// Follows a moment behind, so that a burst of photos costs it few refreshes.
class StatusStrip final : public QFrame {
    Q_OBJECT

public:
    explicit StatusStrip(UiServices& services, QWidget* parent = nullptr);

private:
    void observe();
    void showState();
    [[nodiscard]] HeaderFacts facts() const;

    UiServices& m_services;
    QLabel* m_watching;
    ElidedLabel* m_set;
    ElidedLabel* m_failure;
    QLabel* m_difference;
    QLabel* m_unsaved;
    CoalescedCall m_refresh;
};

}  // namespace morvak
