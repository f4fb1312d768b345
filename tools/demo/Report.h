#pragma once

#include <QString>

namespace morvak::demo {

/// What the demonstration tells its viewer, on standard output, at once and as UTF-8.
namespace report {

void heading(const QString& text);

/// One thing that happened: the time of day, who did it, and what.
void event(const QString& who, const QString& what);

void plain(const QString& text);

}  // namespace report

}  // namespace morvak::demo
