#pragma once

#include "model/SetData.h"

#include <QWidget>

class QVBoxLayout;

namespace morvak {

struct UiServices;

/// The box "Actieve Set": the set that new photos are tagged with.
class ActiveSetBox final : public QWidget {
    Q_OBJECT

public:
    explicit ActiveSetBox(UiServices& services, QWidget* parent = nullptr);

private:
    void refresh();
    void addSet(QVBoxLayout& box, const SetData& set) const;
    void addItem(QVBoxLayout& box, const SetItem& item) const;

    UiServices& m_services;
    QVBoxLayout* m_box;
    QWidget* m_content = nullptr;  // made anew for each set
};

}  // namespace morvak
