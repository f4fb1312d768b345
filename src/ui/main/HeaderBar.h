#pragma once

#include <QWidget>

namespace morvak {

struct UiServices;
class StatBadge;

/// The top row of the main window: logo, name, version, the notice of an update, and the two counts.
class HeaderBar final : public QWidget {
    Q_OBJECT

public:
    explicit HeaderBar(UiServices& services, QWidget* parent = nullptr);

private:
    void showSets();
    void showTagged();

    UiServices& m_services;
    StatBadge* m_sets;
    StatBadge* m_tagged;
};

}  // namespace morvak
