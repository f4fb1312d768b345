#include "ui/base/theme/Colors.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace morvak {

namespace {

struct Shades {
    QRgb light;
    QRgb dark;
};

Shades shadesOf(Role role)
{
    switch (role) {
        case Role::surface:
            return {0xfff3f4f6, 0xff17191d};
        case Role::card:
            return {0xffffffff, 0xff212429};
        case Role::line:
            return {0xffd3d7dd, 0xff3d424a};
        case Role::hover:
            return {0xffeaedf1, 0xff2c3037};
        case Role::text:
            return {0xff1b1f24, 0xffe8eaed};
        case Role::secondary:
            return {0xff57606a, 0xffa5acb6};
        case Role::accent:
            return {0xff1660b8, 0xff6cb0ff};
        case Role::onAccent:
            return {0xffffffff, 0xff10233a};
        case Role::success:
            return {0xff1a7435, 0xff56c271};
        case Role::warning:
            return {0xffa85200, 0xfff0a04b};
        case Role::danger:
            return {0xffc0272d, 0xffff7b78};
        case Role::info:
            return {0xff1660b8, 0xff6cb0ff};
        case Role::banner:
            return {0xff1f7a3a, 0xff1f7a3a};
        case Role::onBanner:
            return {0xffffffff, 0xffffffff};
        case Role::shadow:
            return {0xff000000, 0xff000000};
    }
    Q_UNREACHABLE();
}

double linearChannel(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double relativeLuminance(const QColor& color)
{
    return 0.2126 * linearChannel(color.redF()) + 0.7152 * linearChannel(color.greenF()) +
           0.0722 * linearChannel(color.blueF());
}

}  // namespace

QLatin1StringView nameOf(Role role)
{
    const auto* const entry = std::find_if(roleNames.begin(), roleNames.end(),
                                           [role](const auto& pair) { return pair.first == role; });
    Q_ASSERT(entry != roleNames.end());
    return entry->second;
}

QColor colorOf(Role role, Scheme scheme)
{
    const Shades shades = shadesOf(role);
    return QColor::fromRgb(scheme == Scheme::dark ? shades.dark : shades.light);
}

QColor blended(const QColor& above, const QColor& below, double opacity)
{
    const auto mix = [opacity](int one, int other) {
        return static_cast<int>(std::lround(one * opacity + other * (1 - opacity)));
    };
    return {mix(above.red(), below.red()), mix(above.green(), below.green()),
            mix(above.blue(), below.blue())};
}

double contrastRatio(const QColor& one, const QColor& other)
{
    const auto [darker, lighter] = std::minmax({relativeLuminance(one), relativeLuminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

}  // namespace morvak
