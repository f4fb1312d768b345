#pragma once

#include "rename/RawRenameSummary.h"
#include "ui/base/theme/Colors.h"

#include <QCoreApplication>

namespace morvak {

/// How a run of the RAW rename ended, beyond its results.
struct RenameEnd {
    bool gaveUp = false;
    qsizetype total = 0;  ///< files that were to be read or copied when it ended
};

/// What the tab "Hernoemen" says of a run. Pure; any thread.
class RenameTexts {
    Q_DECLARE_TR_FUNCTIONS(morvak::RenameTexts)

public:
    /// One file's line: a symbol, the file's old name, and what became of it.
    struct Line {
        QString symbol;
        Role role;
        QString rest;  ///< behind the name: the new name, or " — " and the reason

        bool operator==(const Line&) const = default;
    };
    [[nodiscard]] static Line line(const RawRenameResult& result);

    /// The line without its symbol, to copy and to hear.
    [[nodiscard]] static QString plain(const RawRenameResult& result);

    /// "12 hernoemd, 3 overgeslagen."
    [[nodiscard]] static QString counts(const RawRenameSummary& summary);

    /// What the results do not tell: that the run was given up, or why files have none. Empty else.
    [[nodiscard]] static QString ending(const RawRenameSummary& summary, const RenameEnd& end);

private:
    [[nodiscard]] static QString leftOut(const RawRenameSummary& summary);
};

}  // namespace morvak
