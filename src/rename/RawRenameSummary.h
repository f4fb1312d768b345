#pragma once

#include <QList>
#include <QString>

#include <algorithm>
#include <variant>

namespace morvak {

/// What became of one file.
struct RawRenameResult {
    struct Renamed {
        QString newName;  ///< of the copy in the destination folder
        bool operator==(const Renamed&) const = default;
    };
    struct SkippedCopyFailed {
        QString text;  ///< the reason, in Dutch
        bool operator==(const SkippedCopyFailed&) const = default;
    };
    struct SkippedNoName {
        bool operator==(const SkippedNoName&) const = default;
    };
    using Outcome = std::variant<Renamed, SkippedCopyFailed, SkippedNoName>;

    QString originalFileName;
    Outcome outcome;
    bool operator==(const RawRenameResult&) const = default;
};

/// The files of one run in the order in which they were copied. A run that was given up holds those that it
/// had come to.
struct RawRenameSummary {
    QList<RawRenameResult> results;
    qsizetype unread = 0;      ///< files without a result: the metadata tool told nothing of them
    qsizetype unsendable = 0;  ///< files without a result: the tool cannot be asked about their names

    [[nodiscard]] qsizetype renamedCount() const
    {
        return std::count_if(results.begin(), results.end(), [](const RawRenameResult& result) {
            return std::holds_alternative<RawRenameResult::Renamed>(result.outcome);
        });
    }
};

}  // namespace morvak
