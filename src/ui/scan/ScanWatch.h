#pragma once

#include "ui/base/blocks/CoalescedCall.h"
#include "ui/scan/KeyClock.h"
#include "ui/scan/ScanField.h"
#include "ui/scan/ScannerBurst.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <memory>
#include <vector>

class QInputMethodEvent;
class QKeyEvent;

namespace morvak {

/// Catches what a scanner types anywhere in a window, before the widget that has the focus sees it, and shows
/// it in the scan field; what a person types reaches its widget.
///
/// Nothing is caught while another field is edited (one without text is not yet, but gets what is no set
/// text), while a sheet, a menu or a popup is open, or in other windows. Main thread; the window and the
/// field, which stands in it, outlive this.
class ScanWatch final : public QObject {
    Q_OBJECT

public:
    ScanWatch(QWidget& window, ScanField& field, QObject* parent = nullptr);
    ~ScanWatch() override;

    bool eventFilter(QObject* receiver, QEvent* event) override;

Q_SIGNALS:
    /// A burst has ended that is a scan. The scan field holds again what it held before.
    void scanned(const QString& text);

private:
    [[nodiscard]] QWidget* target() const;
    [[nodiscard]] ScannerBurst::Place placeOf(const QWidget& widget) const;
    [[nodiscard]] bool catchesFor(const QObject* receiver) const;
    [[nodiscard]] bool keepFromShortcuts(QKeyEvent& event) const;
    [[nodiscard]] bool takePress(const QObject* receiver, const QKeyEvent& event);
    [[nodiscard]] bool takeRelease(const QKeyEvent& event);
    [[nodiscard]] bool takeComposed(const QObject* receiver, const QInputMethodEvent& event);
    [[nodiscard]] bool take(const QObject* receiver, const ScanKey& key, quint64 stamp, const QEvent& event);
    void wait();
    void act(ScannerBurst::Verdict verdict);
    void releaseHeld();
    void finish(const QString& text);
    void giveUp();

    QWidget& m_window;
    ScanField& m_field;
    ScannerBurst m_burst;
    std::vector<std::unique_ptr<QEvent>> m_held;  // in their order, for the widget that has the focus
    bool m_isReleasing = false;
    bool m_isForField = false;  // another one than the scan field, unless what comes is set text
    ScanField::State m_before;  // of the scan field, when the first key came
    CoalescedCall m_show;
    QTimer m_silence;
    QTimer m_secondLook;
    QElapsedTimer m_arrivals;
    KeyClock m_clock;
};

}  // namespace morvak
