#pragma once

#include <QString>

#include <optional>

namespace morvak::bench {

/// What a figure is measured against in the same run: the noise of the machine is in both.
struct Comparison {
    QString what;    ///< "the shell loop"
    QString figure;  ///< its own
    double ratio;    ///< ours divided by its
};

/// One line of the table that `./run bench` prints, from all benchmarks together: appended to the file that
/// MORVAK_BENCH_TABLE names, where one is named.
void addFigure(const QString& subject, const QString& figure, const std::optional<Comparison>& against = {});

}  // namespace morvak::bench
