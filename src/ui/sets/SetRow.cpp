#include "ui/sets/SetRow.h"

#include "ui/base/theme/Metrics.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

constexpr int circleSize = 12;
constexpr int countWidth = 104;
constexpr int activateWidth = 88;
constexpr int buttonHeight = 28;
constexpr int iconButtonWidth = 32;

QRect centred(const QRect& row, int left, int width, int height)
{
    return {left, row.top() + (row.height() - height) / 2, width, height};
}

}  // namespace

QRect SetRow::circle() const
{
    return centred(m_area, m_area.left() + metrics::betweenGroups, circleSize, circleSize);
}

QRect SetRow::texts() const
{
    const int left = circle().right() + 1 + metrics::betweenGroups;
    return {left, m_area.top(), count().left() - metrics::inGroup - left, m_area.height()};
}

QRect SetRow::count() const
{
    const int right = rectOf(SetRowAction::activate).left() - metrics::betweenGroups;
    return {right - countWidth, m_area.top(), countWidth, m_area.height()};
}

QRect SetRow::rectOf(SetRowAction action) const
{
    const int fromRight = static_cast<int>(actions.end() - std::ranges::find(actions, action));
    const int left = m_area.right() + 1 - metrics::inGroup - fromRight * iconButtonWidth;
    if (action != SetRowAction::activate)
        return centred(m_area, left, iconButtonWidth, buttonHeight);
    return centred(m_area, left + iconButtonWidth - metrics::inGroup - activateWidth, activateWidth,
                   buttonHeight);
}

bool SetRow::offers(SetRowAction action) const
{
    return action != SetRowAction::activate || !m_isActive;
}

std::optional<SetRowAction> SetRow::actionAt(const QPoint& position) const
{
    for (const SetRowAction action : actions) {
        if (offers(action) && rectOf(action).contains(position))
            return action;
    }
    return std::nullopt;
}

std::optional<SetRowAction> SetRow::next(std::optional<SetRowAction> from, int step) const
{
    const auto size = static_cast<int>(actions.size());
    const int start = from ? static_cast<int>(std::ranges::find(actions, *from) - actions.begin()) : -1;
    for (int at = start + step; at >= 0 && at < size; at += step) {
        if (offers(actions[static_cast<std::size_t>(at)]))
            return actions[static_cast<std::size_t>(at)];
    }
    return step < 0 ? std::nullopt : from;
}

QString SetRow::symbol(SetRowAction action)
{
    switch (action) {
        case SetRowAction::activate:
            return {};
        case SetRowAction::showQR:
            return u"qrcode"_s;
        case SetRowAction::edit:
            return u"pencil"_s;
        case SetRowAction::remove:
            return u"trash"_s;
    }
    Q_UNREACHABLE();
}

QString SetRow::help(SetRowAction action)
{
    switch (action) {
        case SetRowAction::activate:
            return tr("Activeren") + u" (Enter)"_s;
        case SetRowAction::showQR:
            return tr("Toon QR-code");
        case SetRowAction::edit:
            return tr("Bewerken") + u" (F2)"_s;
        case SetRowAction::remove:
            return tr("Verwijderen") + u" (Delete)"_s;
    }
    Q_UNREACHABLE();
}

}  // namespace morvak
