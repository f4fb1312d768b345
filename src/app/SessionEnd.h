#pragma once

class QGuiApplication;

namespace morvak {

/// Makes every way in which the program is asked to end one and the same: the event loop ends with status 0,
/// and what follows it runs in order. The ways are the end of the desktop session, `QCoreApplication::quit`
/// and SIGTERM, SIGINT and SIGHUP. Windows are not asked, so that one which hides instead of closing cannot
/// stand in the way. Once, on the main thread, when the application object has been made.
void quitWhenAsked(QGuiApplication& application);

}  // namespace morvak
