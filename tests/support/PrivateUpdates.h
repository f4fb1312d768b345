#pragma once

#include "update/UpdateChecker.h"

namespace morvak::test {

/// An update check that keeps its memory in the file `preferences`, not in the user's.
inline UpdateConfig privateUpdates(const QString& preferences)
{
    UpdateConfig config;
    config.preferencesPath = preferences;
    return config;
}

}  // namespace morvak::test
