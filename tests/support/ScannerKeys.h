#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QTest>
#include <QWidget>

#include <functional>

namespace morvak::test {

/// A scanner, or a person, at the keyboard of a window: keys with the display server's stamps, for whichever
/// widget has the focus. The distances are those of the stamps; the keys themselves come at once, as they do
/// when the main thread was busy.
class ScannerKeys {
public:
    explicit ScannerKeys(QWidget& window) : m_window(window) {}

    /// `gap` in milliseconds since the key before.
    void press(int key, const QString& text, Qt::KeyboardModifiers held = {}, int gap = 10)
    {
        m_stamp += quint64(gap);
        QKeyEvent shortcut(QEvent::ShortcutOverride, key, held, text);
        QCoreApplication::sendEvent(focused(), &shortcut);
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, held, text);
            event.setTimestamp(m_stamp);
            QSpontaneKeyEvent::setSpontaneous(&event);
            qApp->notify(focused(), &event);
        }
    }

    /// LF is Return, a capital comes with a Shift of its own.
    void type(
        const QString& text, const std::function<int()>& gap = [] { return 10; })
    {
        for (const QChar c : text) {
            if (c == u'\n') {
                press(Qt::Key_Return, QStringLiteral("\r"), {}, gap());
            } else if (c == u'\t') {
                press(Qt::Key_Tab, QStringLiteral("\t"), {}, gap());
            } else if (c.isUpper() || c == u':') {
                press(Qt::Key_Shift, {}, {}, gap());
                press(c.unicode(), c, Qt::ShiftModifier, gap());
            } else {
                press(c.toUpper().unicode(), c, {}, gap());
            }
        }
    }

    /// Long enough for whatever was typed to be over.
    void pause() { m_stamp += 1000; }

private:
    [[nodiscard]] QWidget* focused() const
    {
        QWidget* const widget = m_window.focusWidget();
        return widget ? widget : &m_window;
    }

    QWidget& m_window;
    quint64 m_stamp = 5000;
};

}  // namespace morvak::test
