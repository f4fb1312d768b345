#pragma once

#include "model/Shoot.h"

#include <QWidget>

namespace morvak {

class EmptyState;
class SetFilter;
class SetList;
class SetListModel;
class Theme;
enum class SetRowAction;

/// The sets of the active shoot that a search finds, or what to do where there are none.
class SetsContent final : public QWidget {
    Q_OBJECT

public:
    explicit SetsContent(const Theme& theme, QWidget* parent = nullptr);

    /// Selection and place stay with their sets, as long as the shoot is the same.
    void showShoot(const std::optional<Shoot>& shoot, std::optional<QUuid> activeSetId);

    /// The selected set stays selected where it is found.
    void setSearch(const QString& text);

    /// Whether the search finds the set.
    [[nodiscard]] bool shows(QUuid setId) const;
    void select(QUuid setId);
    /// With little height, an empty shoot leaves its advice to the tooltip, and its buttons to the bars
    /// above.
    void setLow(bool isLow);
    /// Gives the list the focus, on the selected set or the first.
    void focusList();

Q_SIGNALS:
    void asked(SetRowAction action, QUuid setId);
    void newShootAsked();
    void newSetAsked();
    void allSetsAsked();

private:
    void addStates(const Theme& theme);
    void showState();

    SetListModel* m_model;
    SetFilter* m_filter;
    SetList* m_list;
    EmptyState* m_noShoot = nullptr;
    EmptyState* m_noSets = nullptr;
    EmptyState* m_nothingFound = nullptr;
    std::optional<QUuid> m_shootId;
};

}  // namespace morvak
