#include "app/SessionEnd.h"

#include "platform/Signals.h"

#include <QGuiApplication>
#include <QSessionManager>

namespace morvak {

namespace {

/// QCoreApplication::quit and the session manager's farewell both arrive as a Quit event, and Qt's own answer
/// is to close the windows and to stay when one of them does not.
class QuitFilter final : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched != parent() || event->type() != QEvent::Quit)
            return false;
        QCoreApplication::exit(0);
        return true;
    }
};

}  // namespace

void quitWhenAsked(QGuiApplication& application)
{
    application.installEventFilter(new QuitFilter(&application));
    onQuitRequest(&application, [] { QCoreApplication::exit(0); });
    // Nothing needs saving before the quit. A session that is restored must not open this start's files
    // again.
    QObject::connect(
        &application, &QGuiApplication::saveStateRequest, &application,
        [](QSessionManager& session) {
            session.setRestartCommand({QCoreApplication::applicationFilePath()});
        },
        Qt::DirectConnection);
}

}  // namespace morvak
