#pragma once

#include <QCoreApplication>
#include <QRect>

#include <array>
#include <optional>

namespace morvak {

/// What can be done with the set of a row.
enum class SetRowAction { activate, showQR, edit, remove };

/// How a row of the list of sets is laid out, and what its actions are called. Pure.
class SetRow {
    Q_DECLARE_TR_FUNCTIONS(morvak::SetRow)

public:
    /// From left to right.
    static constexpr std::array actions{SetRowAction::activate, SetRowAction::showQR, SetRowAction::edit,
                                        SetRowAction::remove};
    static constexpr int height = 52;

    /// `area` is the row's rectangle; the active set has a badge in the place of "Activeer".
    SetRow(const QRect& area, bool isActive) : m_area(area), m_isActive(isActive) {}

    [[nodiscard]] QRect circle() const;
    [[nodiscard]] QRect texts() const;
    [[nodiscard]] QRect count() const;
    [[nodiscard]] QRect badge() const { return rectOf(SetRowAction::activate); }
    [[nodiscard]] QRect rectOf(SetRowAction action) const;

    [[nodiscard]] bool offers(SetRowAction action) const;
    [[nodiscard]] std::optional<SetRowAction> actionAt(const QPoint& position) const;
    /// The next one that the row offers to the right (`step` 1) or the left (-1) of `from`, where none stands
    /// left of all.
    [[nodiscard]] std::optional<SetRowAction> next(std::optional<SetRowAction> from, int step) const;

    /// The symbol; empty for "Activeer".
    [[nodiscard]] static QString symbol(SetRowAction action);
    /// The help text, with the key in brackets.
    [[nodiscard]] static QString help(SetRowAction action);

private:
    QRect m_area;
    bool m_isActive;
};

}  // namespace morvak
