#include "ui/main/TrayRules.h"

#include <algorithm>

namespace morvak {

namespace {

constexpr int gap = 8;

int within(int position, int length, int from, int to)
{
    return std::max(from, std::min(position, to - length));
}

}  // namespace

PanelStep panelStep(const WindowFacts& facts)
{
    const bool asWindow = facts.panelVisible && facts.panelIsWindow;
    if (facts.mainVisible)
        return asWindow ? PanelStep::hide : PanelStep::leave;
    return facts.trayThere || asWindow ? PanelStep::leave : PanelStep::showAsWindow;
}

PanelClose panelClose(const WindowFacts& facts, bool isWatching)
{
    if (facts.trayThere || facts.mainVisible)
        return PanelClose::hide;
    return isWatching ? PanelClose::askAndQuit : PanelClose::quit;
}

QRect panelPlace(const QRect& icon, const QSize& panel, const QRect& available)
{
    const bool iconInUpperHalf = icon.center().y() < available.center().y();
    const int wantedY = iconInUpperHalf ? icon.bottom() + 1 + gap : icon.top() - gap - panel.height();
    const int wantedX = icon.center().x() - panel.width() / 2;
    const int x = within(wantedX, panel.width(), available.left() + gap, available.right() + 1 - gap);
    const int y = within(wantedY, panel.height(), available.top() + gap, available.bottom() + 1 - gap);
    return {QPoint(x, y), panel};
}

}  // namespace morvak
