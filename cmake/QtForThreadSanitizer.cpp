// For programs under ThreadSanitizer only. Qt's libraries are not instrumented, so that what one
// thread hands to another through them looks like a race. Calls from our code arrive here first;
// they do the same and tell the sanitizer. What is inline in Qt's headers, like QMutex, tells it by
// itself, and the wake-up of an event loop is one of the system's.
#include <QDeadlineTimer>
#include <QEvent>
#include <QFutureInterface>
#include <QMetaMethod>
#include <QMutex>
#include <QObject>
#include <QSemaphore>
#include <QThreadPool>
#include <QWaitCondition>

#include <dlfcn.h>
#include <functional>
#include <memory>
#include <sanitizer/tsan_interface.h>
#include <utility>

// Where the linker put the program's code. The names are the linker's.
extern "C" const char __executable_start; // NOLINT(bugprone-reserved-identifier)
extern "C" const char etext;

namespace {

template <typename Function> Function *inQt(const char *mangledName)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, mangledName));
}

bool isWithinProgram(const void *caller)
{
    return caller >= &__executable_start && caller < &etext;
}

// Signals and calls that wait in an event loop. One hand for all of them: whose a call is cannot be
// told where it is delivered.
char queuedCalls;

bool takeQueuedCall(void **receiverEventAndResult)
{
    if (static_cast<QEvent *>(receiverEventAndResult[1])->type() == QEvent::MetaCall)
        __tsan_acquire(&queuedCalls);
    return false;
}

const bool isTakingQueuedCalls =
    QInternal::registerCallback(QInternal::EventNotifyCallback, takeQueuedCall);

/// Emitted by Qt's render thread while the main thread waits for it, having emitted a signal
/// itself.
bool isBeforeSynchronizing(const QMetaObject *type, int signal)
{
    return qstrcmp(type->className(), "QQuickWindow") == 0
        && type->method(type->methodOffset() + signal).name() == "beforeSynchronizing";
}

} // namespace

void QMetaObject::activate(QObject *sender, const QMetaObject *type, int signal, void **arguments)
{
    static const auto activate = inQt<void(QObject *, const QMetaObject *, int, void **)>(
        "_ZN11QMetaObject8activateEP7QObjectPKS_iPPv");
    __tsan_release(&queuedCalls);
    if (isBeforeSynchronizing(type, signal))
        __tsan_acquire(&queuedCalls);
    activate(sender, type, signal, arguments);
}

// Later versions do more of these three in their headers. What is handed over by them is seen only
// where it wakes up a thread.
#if QT_VERSION < QT_VERSION_CHECK(6, 6, 0)

namespace {

/// Work that sees what its giver had done.
std::function<void()> handedOver(std::function<void()> work)
{
    const auto hand = std::make_shared<char>();
    __tsan_release(hand.get());
    return [hand, work = std::move(work)] {
        __tsan_acquire(hand.get());
        work();
    };
}

} // namespace

bool QMetaObject::invokeMethodImpl(
    QObject *object, QtPrivate::QSlotObjectBase *slot, Qt::ConnectionType type, void *result)
{
    static const auto invoke =
        inQt<bool(QObject *, QtPrivate::QSlotObjectBase *, Qt::ConnectionType, void *)>(
            "_ZN11QMetaObject16invokeMethodImplEP7QObject"
            "PN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPv");
    __tsan_release(&queuedCalls);
    return invoke(object, slot, type, result);
}

void QThreadPool::start(std::function<void()> work, int priority)
{
    static const auto start = inQt<void(QThreadPool *, std::function<void()>, int)>(
        "_ZN11QThreadPool5startESt8functionIFvvEEi");
    start(this, handedOver(std::move(work)), priority);
}

bool QThreadPool::tryStart(std::function<void()> work)
{
    static const auto tryStart = inQt<bool(QThreadPool *, std::function<void()>)>(
        "_ZN11QThreadPool8tryStartESt8functionIFvvEE");
    return tryStart(this, handedOver(std::move(work)));
}

#endif

// QtConcurrent::run calls this when the work is complete, …
void QFutureInterfaceBase::reportStarted()
{
    static const auto reportStarted =
        inQt<void(QFutureInterfaceBase *)>("_ZN20QFutureInterfaceBase13reportStartedEv");
    __tsan_release(d);
    reportStarted(this);
}

// … and the work begins with this.
bool QFutureInterfaceBase::isCanceled() const
{
    static const auto isCanceled =
        inQt<bool(const QFutureInterfaceBase *)>("_ZNK20QFutureInterfaceBase10isCanceledEv");
    __tsan_acquire(d);
    return isCanceled(this);
}

// Who is done with the work last destroys its result, whoever that is.
bool QFutureInterfaceBase::derefT() const noexcept
{
    static const auto derefT =
        inQt<bool(const QFutureInterfaceBase *)>("_ZNK20QFutureInterfaceBase6derefTEv");
    __tsan_release(d);
    const bool isStillInUse = derefT(this);
    __tsan_acquire(d);
    return isStillInUse;
}

void QSemaphore::acquire(int count)
{
    static const auto acquire = inQt<void(QSemaphore *, int)>("_ZN10QSemaphore7acquireEi");
    acquire(this, count);
    __tsan_acquire(this);
}

void QSemaphore::release(int count)
{
    static const auto release = inQt<void(QSemaphore *, int)>("_ZN10QSemaphore7releaseEi");
    __tsan_release(this);
    release(this, count);
}

bool QWaitCondition::wait(QMutex *mutex, QDeadlineTimer deadline)
{
    static const auto wait = inQt<bool(QWaitCondition *, QMutex *, QDeadlineTimer)>(
        "_ZN14QWaitCondition4waitEP6QMutex14QDeadlineTimer");
    // Of the mutexes of Qt's other libraries the sanitizer does not know that they were locked.
    const bool isOurs = isWithinProgram(__builtin_return_address(0));
    if (isOurs) {
        __tsan_mutex_pre_unlock(mutex, 0);
        __tsan_mutex_post_unlock(mutex, 0);
    }
    const bool isWoken = wait(this, mutex, deadline);
    if (isOurs) {
        __tsan_mutex_pre_lock(mutex, 0);
        __tsan_mutex_post_lock(mutex, 0, 0);
    }
    __tsan_acquire(this);
    return isWoken;
}

void QWaitCondition::wakeOne()
{
    static const auto wakeOne = inQt<void(QWaitCondition *)>("_ZN14QWaitCondition7wakeOneEv");
    __tsan_release(this);
    wakeOne(this);
}

void QWaitCondition::wakeAll()
{
    static const auto wakeAll = inQt<void(QWaitCondition *)>("_ZN14QWaitCondition7wakeAllEv");
    __tsan_release(this);
    wakeAll(this);
}
