// SPDX-License-Identifier: MIT
// Takes the place of functions of Qt's where a test is built for the thread sanitizer: Qt is not, so the
// sanitizer does not see that what is handed to a pool or to another thread's event loop was written before
// it is read there, that waiting for a pool is waiting, nor that a call which two threads know of is deleted
// by the last of them.
#include <QMetaObject>
#include <QRunnable>
#include <QThreadPool>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

#include <functional>
#include <utility>

namespace {

// Their addresses stand for what comes before what.
char handedOver;
char done;

class OrderedWork final : public QRunnable {
public:
    explicit OrderedWork(std::function<void()> work) : work_(std::move(work)) {}
    void run() override {
        __tsan_acquire(&handedOver);
        std::exchange(work_, nullptr)();
        __tsan_release(&done);
    }

private:
    std::function<void()> work_;
};

/// A call that the event loop of any thread makes; the last thread that knows of it deletes it.
class OrderedCall final : public QtPrivate::QSlotObjectBase {
public:
    explicit OrderedCall(QtPrivate::QSlotObjectBase *call) : QSlotObjectBase(&carryOut), call_(call) {
        __tsan_release(this);
    }

private:
    static void carryOut(int operation, QSlotObjectBase *base, QObject *receiver, void **arguments, bool *) {
        __tsan_acquire(base);
        auto *const self = static_cast<OrderedCall *>(base);
        if (operation == Call) {
            self->call_->call(receiver, arguments);
            __tsan_release(base);
        } else if (operation == Destroy) {
            self->call_->destroyIfLastRef();
            delete self;
        }
    }

    QtPrivate::QSlotObjectBase *const call_;
};

}  // namespace

bool QMetaObject::invokeMethodImpl(QObject *object, QtPrivate::QSlotObjectBase *slot, Qt::ConnectionType type,
                                   void *ret) {
    using Invoke = bool (*)(QObject *, QtPrivate::QSlotObjectBase *, Qt::ConnectionType, void *);
    static const auto invoke = reinterpret_cast<Invoke>(dlsym(
        RTLD_NEXT,
        "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPv"));
    return invoke(object, new OrderedCall(slot), type, ret);
}

void QThreadPool::start(std::function<void()> functionToRun, int priority) {
    auto *const work = new OrderedWork(std::move(functionToRun));
    __tsan_release(&handedOver);
    start(work, priority);
}

bool QThreadPool::waitForDone(int msecs) {
    using Wait = bool (*)(QThreadPool *, int);
    static const auto wait = reinterpret_cast<Wait>(dlsym(RTLD_NEXT, "_ZN11QThreadPool11waitForDoneEi"));
    const bool isDone = wait(this, msecs);
    __tsan_acquire(&done);
    return isDone;
}
