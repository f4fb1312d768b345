#include "ui/scan/ScanWatch.h"

#include "platform/Diagnostics.h"
#include "ui/scan/ScanText.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include <utility>

namespace morvak {

namespace {

using namespace std::chrono_literals;
using Kind = ScanKey::Kind;

/// When the time is up while the main thread was busy, keys may have come that it has not seen yet.
constexpr auto secondLook = 10ms;

/// Lists take composed text too, for the editors of their items.
bool takesText(const QWidget& widget)
{
    return widget.testAttribute(Qt::WA_InputMethodEnabled) &&
           !qobject_cast<const QAbstractItemView*>(&widget);
}

/// A field that has the focus and no text is not being edited yet.
bool isBeingEdited(const QWidget& widget)
{
    const auto* const field = qobject_cast<const QLineEdit*>(&widget);
    return takesText(widget) && !(field && field->text().isEmpty());
}

}  // namespace

ScanWatch::ScanWatch(QWidget& window, ScanField& field, QObject* parent)
    : QObject(parent), m_window(window), m_field(field), m_show([this] {
          if (m_burst.isCaught())
              m_field.showScan(m_before, m_burst.text());
      })
{
    m_arrivals.start();
    m_silence.setSingleShot(true);
    m_silence.setTimerType(Qt::PreciseTimer);
    m_secondLook.setSingleShot(true);
    m_secondLook.setInterval(secondLook);
    connect(&m_silence, &QTimer::timeout, &m_secondLook, qOverload<>(&QTimer::start));
    connect(&m_secondLook, &QTimer::timeout, this, [this] { act(m_burst.silence()); });
    qApp->installEventFilter(this);
}

ScanWatch::~ScanWatch() = default;

bool ScanWatch::eventFilter(QObject* receiver, QEvent* event)
{
    switch (event->type()) {
        case QEvent::ShortcutOverride:
            return catchesFor(receiver) && keepFromShortcuts(static_cast<QKeyEvent&>(*event));
        case QEvent::KeyPress:
            return event->spontaneous() && catchesFor(receiver) &&
                   takePress(receiver, static_cast<QKeyEvent&>(*event));
        case QEvent::KeyRelease:
            return event->spontaneous() && catchesFor(receiver) &&
                   takeRelease(static_cast<QKeyEvent&>(*event));
        case QEvent::InputMethod:
            return !m_isReleasing && receiver == &m_field && catchesFor(receiver) &&
                   takeComposed(receiver, static_cast<QInputMethodEvent&>(*event));
        case QEvent::MouseButtonPress:
            if (!m_burst.isCaught())
                act(m_burst.silence());
            return false;
        case QEvent::WindowDeactivate:
            if (receiver == &m_window)
                giveUp();
            return false;
        default:
            return false;
    }
}

/// Who gets a key first.
QWidget* ScanWatch::target() const
{
    QWidget* const focused = m_window.focusWidget();
    return focused ? focused : &m_window;
}

/// A key that its widget does not take goes to the parents of the widget; it is looked at once.
bool ScanWatch::catchesFor(const QObject* receiver) const
{
    const QWidget* const widget = target();
    return receiver == widget && !QApplication::activePopupWidget() &&
           (widget == &m_field || m_burst.isCaught() || !isBeingEdited(*widget));
}

ScannerBurst::Place ScanWatch::placeOf(const QWidget& widget) const
{
    return &widget == &m_field ? ScannerBurst::Place::scanField
           : takesText(widget) ? ScannerBurst::Place::textField
                               : ScannerBurst::Place::elsewhere;
}

/// What may be a scanner's comes as a key, never as a shortcut.
bool ScanWatch::keepFromShortcuts(QKeyEvent& event) const
{
    const Kind kind = scanKeyOf(event).kind;
    const bool mayBeScan = kind == Kind::text || kind == Kind::lineBreak || kind == Kind::deadKey;
    const bool isScan =
        m_burst.isCaught() && (kind == Kind::controlBreak || kind == Kind::silent || kind == Kind::other);
    event.setAccepted(mayBeScan || isScan);
    return event.isAccepted();
}

bool ScanWatch::takePress(const QObject* receiver, const QKeyEvent& event)
{
    return take(receiver, scanKeyOf(event), event.timestamp(), event);
}

bool ScanWatch::takeComposed(const QObject* receiver, const QInputMethodEvent& event)
{
    if (event.commitString().isEmpty() || !event.preeditString().isEmpty() || event.replacementLength() > 0)
        return false;
    return take(receiver, {Kind::text, 0, event.commitString()}, 0, event);
}

bool ScanWatch::take(const QObject* receiver, const ScanKey& key, quint64 stamp, const QEvent& event)
{
    const ScannerBurst::Time time = m_clock.timeOf(stamp, m_arrivals.elapsed());
    act(m_burst.before(key, time));
    if (!catchesFor(receiver)) {
        // What was released before it has moved the focus.
        m_held.emplace_back(event.clone());
        releaseHeld();
        return true;
    }
    const ScannerBurst::Place place = placeOf(*target());
    if (m_burst.isIdle()) {
        m_before = m_field.state();
        m_isForField = place == ScannerBurst::Place::textField;
    }
    const ScannerBurst::Fate fate = m_burst.press(key, time, place);
    if (fate != ScannerBurst::Fate::pass)
        m_held.emplace_back(event.clone());
    if (m_burst.isCaught() && !m_isForField) {
        m_held.clear();
        m_show.ask();
    }
    wait();
    return fate != ScannerBurst::Fate::pass;
}

/// A key is not let go of before it is pressed.
bool ScanWatch::takeRelease(const QKeyEvent& event)
{
    if (m_held.empty())
        return false;
    m_held.emplace_back(event.clone());
    return true;
}

void ScanWatch::wait()
{
    m_secondLook.stop();
    if (m_burst.patience() > 0ms)
        m_silence.start(m_burst.patience());
    else
        m_silence.stop();
}

void ScanWatch::act(ScannerBurst::Verdict verdict)
{
    switch (verdict) {
        case ScannerBurst::Verdict::nothing:
            break;
        case ScannerBurst::Verdict::typed:
            releaseHeld();
            break;
        case ScannerBurst::Verdict::ended:
            finish(m_burst.takeText());
            break;
    }
    wait();
}

void ScanWatch::releaseHeld()
{
    const std::vector<std::unique_ptr<QEvent>> held = std::exchange(m_held, {});
    m_isReleasing = true;
    for (const std::unique_ptr<QEvent>& event : held) {
        QWidget* const focused = QApplication::focusWidget();
        QCoreApplication::sendEvent(focused ? focused : target(), event.get());
    }
    m_isReleasing = false;
}

void ScanWatch::finish(const QString& text)
{
    if (m_isForField && !isSetText(text)) {
        releaseHeld();
        return;
    }
    m_held.clear();
    if (isScan(text)) {
        m_field.setState(m_before);
        Q_EMIT scanned(withoutCapsLock(text));
    } else {
        m_field.showScan(m_before, text);
    }
}

/// The rest of the keys goes elsewhere: half a scan may name another set.
void ScanWatch::giveUp()
{
    if (m_burst.isCaught()) {
        m_held.clear();
        m_field.showScan(m_before, m_burst.takeText());
        diagnostic(QStringLiteral("⚠️ Scan afgebroken: het venster is niet meer actief"));
        wait();
    } else {
        act(m_burst.silence());
    }
}

}  // namespace morvak
