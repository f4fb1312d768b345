#pragma once

#include <QRect>

namespace morvak {

/// Where the windows stand. `trayThere` is asked for at the moment of the decision.
struct WindowFacts {
    bool trayThere = false;
    bool mainVisible = false;
    bool panelVisible = false;
    bool panelIsWindow = false;  ///< an ordinary window rather than a frameless one beside its icon
};

enum class PanelStep { leave, showAsWindow, hide };

/// What becomes of the panel after any change of the facts, so that Morvak is never running out of sight,
/// and never twice in sight where one window does.
[[nodiscard]] PanelStep panelStep(const WindowFacts& facts);

enum class PanelClose { hide, quit, askAndQuit };

/// What closing the panel's window means: the end, where nothing else would be left to see.
[[nodiscard]] PanelClose panelClose(const WindowFacts& facts, bool isWatching);

/// Where a panel of this size opens: beside its icon, on the side where the screen is, wholly inside of what
/// the screen leaves to windows. All in the same coordinates.
[[nodiscard]] QRect panelPlace(const QRect& icon, const QSize& panel, const QRect& available);

}  // namespace morvak
