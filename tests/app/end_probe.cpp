#include "app/SessionEnd.h"

#include <QGuiApplication>
#include <QTimer>
#include <QWindow>

#include <cstdio>

namespace {

/// Hides instead of closing, as a window does that leaves its program in the tray.
class StubbornWindow : public QWindow {
protected:
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::Close)
            return QWindow::event(event);
        hide();
        event->ignore();
        return true;
    }
};

}  // namespace

/// `end_probe quit`: shows a window that does not close and asks the application to quit; without the word it
/// waits for a signal. Says "ended in order" when the event loop is over.
int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    morvak::quitWhenAsked(application);
    StubbornWindow window;
    window.show();
    QTimer::singleShot(0, [argc] {
        std::puts("started");
        std::fflush(stdout);
        if (argc > 1)
            QCoreApplication::quit();
    });
    const int status = QCoreApplication::exec();
    std::puts("ended in order");
    return status;
}
