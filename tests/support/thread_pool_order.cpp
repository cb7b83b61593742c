// SPDX-License-Identifier: MIT
// Takes the place of QThreadPool's own functions where a test is built for the thread sanitizer: Qt is not,
// so the sanitizer does not see that what is handed to a pool was written before it is read there, nor that
// waiting for a pool is waiting.
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

}  // namespace

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
