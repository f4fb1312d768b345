#pragma once

#include <QColor>
#include <QLatin1StringView>

#include <array>
#include <utility>

namespace morvak {

enum class Scheme { light, dark };

/// What a colour is for. Screens name a role, never a colour.
enum class Role {
    surface,    ///< the window
    card,       ///< cards, fields, lists
    line,       ///< borders and dividers
    hover,      ///< behind what the pointer is over
    text,       ///< body text, and the icons beside it
    secondary,  ///< text that may be overlooked
    accent,     ///< the primary button, the selected, the active
    onAccent,   ///< text on the accent
    success,
    warning,
    danger,
    info,
    banner,    ///< the green of the banner, the same in both schemes
    onBanner,  ///< text on the banner
    shadow,    ///< opaque; drawn with a low opacity
};

/// All roles with the names by which the style sheet calls them.
inline constexpr std::array<std::pair<Role, QLatin1StringView>, 15> roleNames{{
    {Role::surface, QLatin1StringView("surface")},
    {Role::card, QLatin1StringView("card")},
    {Role::line, QLatin1StringView("line")},
    {Role::hover, QLatin1StringView("hover")},
    {Role::text, QLatin1StringView("text")},
    {Role::secondary, QLatin1StringView("secondary")},
    {Role::accent, QLatin1StringView("accent")},
    {Role::onAccent, QLatin1StringView("onAccent")},
    {Role::success, QLatin1StringView("success")},
    {Role::warning, QLatin1StringView("warning")},
    {Role::danger, QLatin1StringView("danger")},
    {Role::info, QLatin1StringView("info")},
    {Role::banner, QLatin1StringView("banner")},
    {Role::onBanner, QLatin1StringView("onBanner")},
    {Role::shadow, QLatin1StringView("shadow")},
}};

[[nodiscard]] QLatin1StringView nameOf(Role role);

[[nodiscard]] QColor colorOf(Role role, Scheme scheme);

/// `above` laid over `below` with an opacity from 0 to 1.
[[nodiscard]] QColor blended(const QColor& above, const QColor& below, double opacity);

/// The contrast ratio of two opaque colours as WCAG 2 defines it, from 1 to 21.
[[nodiscard]] double contrastRatio(const QColor& one, const QColor& other);

}  // namespace morvak
