#pragma once

#include "model/Shoot.h"
#include "watch/Backlog.h"

#include <QCoreApplication>

namespace morvak {

/// What Morvak says about sets and shoots. Pure; any thread.
class SetTexts {
    Q_DECLARE_TR_FUNCTIONS(morvak::SetTexts)

public:
    /// The headline, and a name for a set that has none.
    [[nodiscard]] static QString name(const SetData& set);
    /// "34 foto's"
    [[nodiscard]] static QString count(const SetData& set);
    /// The whole row for a screen reader.
    [[nodiscard]] static QString spoken(const SetData& set, bool isActive);

    [[nodiscard]] static QString watchFolder(const std::optional<Shoot>& shoot);
    /// "12 sets · 348 foto's getagd"
    [[nodiscard]] static QString statistics(const Shoot& shoot);

    /// What is asked before a shoot or a set is deleted. `takesPhotos` when new photos get the set.
    [[nodiscard]] static QString deleteTitle(const Shoot& shoot);
    [[nodiscard]] static QString deleteMessage(const Shoot& shoot);
    [[nodiscard]] static QString deleteTitle(const SetData& set);
    [[nodiscard]] static QString deleteMessage(const SetData& set, bool takesPhotos);

    /// What has come of tagging the photos that were there already.
    [[nodiscard]] static QString backlogResult(const BacklogScanSummary& summary);
};

}  // namespace morvak
