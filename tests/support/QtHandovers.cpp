// Tells the thread sanitizer in which order Qt hands work from one thread to another. Qt itself is not built
// with it, so its queues, pools and semaphores would look like no order at all, and whatever goes through
// them like a race. These definitions stand before those of Qt in every test of that build; each does Qt's
// own work and no more.

#include <QMetaObject>
#include <QRunnable>
#include <QSemaphore>
#include <QThread>
#include <QThreadPool>

#include <functional>
#include <utility>

#include <dlfcn.h>

extern "C" void __tsan_acquire(void* address);
extern "C" void __tsan_release(void* address);

namespace {

template <typename Function>
Function inQt(const char* symbol)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, symbol));
}

/// A slot that is called after it was given away, and what it did comes before the end of its thread.
class OrderedSlot final : public QtPrivate::QSlotObjectBase {
public:
    explicit OrderedSlot(QSlotObjectBase* slot) : QSlotObjectBase(&act), m_slot(slot) {}

private:
    static void act(int which, QSlotObjectBase* base, QObject* receiver, void** arguments, bool* result)
    {
        auto* const self = static_cast<OrderedSlot*>(base);
        __tsan_acquire(self);
        switch (which) {
            case Call:
                self->m_slot->call(receiver, arguments);
                __tsan_release(self);  // the poster may be the one that destroys it
                __tsan_release(QThread::currentThread());
                break;
            case Compare:
                *result = self->m_slot->compare(arguments);
                break;
            case Destroy:
                self->m_slot->destroyIfLastRef();
                delete self;
                break;
            default:
                break;
        }
    }

    QSlotObjectBase* m_slot;
};

class OrderedRunnable final : public QRunnable {
public:
    OrderedRunnable(QThreadPool* pool, std::function<void()> work) : m_pool(pool), m_work(std::move(work)) {}

    void run() override
    {
        __tsan_acquire(this);
        m_work();
        m_work = nullptr;
        __tsan_release(m_pool);
    }

private:
    QThreadPool* m_pool;
    std::function<void()> m_work;
};

}  // namespace

bool QMetaObject::invokeMethodImpl(QObject* object, QtPrivate::QSlotObjectBase* slot, Qt::ConnectionType type,
                                   void* result)
{
    using Function = bool (*)(QObject*, QtPrivate::QSlotObjectBase*, Qt::ConnectionType, void*);
    static const auto real = inQt<Function>(
        "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPv");
    auto* const ordered = new OrderedSlot(slot);
    __tsan_release(ordered);
    return real(object, ordered, type, result);
}

void QThreadPool::start(std::function<void()> work, int priority)
{
    auto* const runnable = new OrderedRunnable(this, std::move(work));
    __tsan_release(runnable);
    start(static_cast<QRunnable*>(runnable), priority);
}

bool QThreadPool::waitForDone(int milliseconds)
{
    static const auto real = inQt<bool (*)(QThreadPool*, int)>("_ZN11QThreadPool11waitForDoneEi");
    const bool done = real(this, milliseconds);
    __tsan_acquire(this);
    return done;
}

bool QThread::wait(QDeadlineTimer deadline)
{
    static const auto real = inQt<bool (*)(QThread*, QDeadlineTimer)>("_ZN7QThread4waitE14QDeadlineTimer");
    const bool ended = real(this, deadline);
    __tsan_acquire(this);
    return ended;
}

void QSemaphore::acquire(int count)
{
    static const auto real = inQt<void (*)(QSemaphore*, int)>("_ZN10QSemaphore7acquireEi");
    real(this, count);
    __tsan_acquire(this);
}

bool QSemaphore::tryAcquire(int count, int milliseconds)
{
    static const auto real = inQt<bool (*)(QSemaphore*, int, int)>("_ZN10QSemaphore10tryAcquireEii");
    const bool acquired = real(this, count, milliseconds);
    __tsan_acquire(this);
    return acquired;
}

void QSemaphore::release(int count)
{
    static const auto real = inQt<void (*)(QSemaphore*, int)>("_ZN10QSemaphore7releaseEi");
    __tsan_release(this);
    real(this, count);
}
