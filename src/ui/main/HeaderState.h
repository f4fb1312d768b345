#pragma once

#include "actions/TaggedNow.h"
#include "ui/base/theme/Colors.h"
#include "ui/watch/WatchState.h"
#include "watch/LogEntry.h"

#include <QCoreApplication>

namespace morvak {

/// What the header is told from.
struct HeaderFacts {
    WatchState watching = WatchState::noFolder;
    TaggedNow tagging;
    std::optional<LogEntry> lastFailure;
    QString shootsProblem;   ///< why the shoots cannot be saved; empty while they are
    QString catalogProblem;  ///< the same of the product catalog
};

/// What the header says at a glance.
struct HeaderState {
    bool isWatching = false;
    QString watching;  ///< "Actief", "Gestopt", ...
    QString set;       ///< headline, or that there is none
    bool hasSet = false;
    QString difference;  ///< in words, where photos get another set than the active one; else empty
    QString failure;     ///< "14:03:22  ❌ ..."; empty when nothing has gone wrong
    Role failureRole = Role::secondary;
    QString unsaved;  ///< in words, what cannot be saved and why; else empty
};

/// Pure; any thread.
class HeaderText {
    Q_DECLARE_TR_FUNCTIONS(morvak::HeaderText)

public:
    [[nodiscard]] static HeaderState of(const HeaderFacts& facts);

private:
    [[nodiscard]] static QString watching(WatchState state);
    [[nodiscard]] static QString difference(const TaggedNow& tagging);
    [[nodiscard]] static QString unsaved(const HeaderFacts& facts);
};

}  // namespace morvak
