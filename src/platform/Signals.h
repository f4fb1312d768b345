#pragma once

#include <functional>

class QObject;

namespace morvak {

/// Broken pipes, broken leases and files that grow too long end with an error at their caller, never with the
/// program. Call first.
void ignoreStraySignals();

/// Calls `handler` on the main thread when the program is asked to end (SIGTERM, SIGINT, SIGHUP). Once per
/// process, on the main thread; `owner` ends it.
void onQuitRequest(QObject* owner, std::function<void()> handler);

}  // namespace morvak
