// SPDX-License-Identifier: MIT
#include "measures.h"
#include "platform/events/swap_filter.h"
#include "platform/events/x11_key_tap.h"
#include "support/desktop_session.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

#include <linux/input-event-codes.h>
#include <xcb/xinput.h>
#include <xcb/xtest.h>

#include <atomic>
#include <thread>

namespace pimloft::bench {

namespace {

constexpr xcb_keycode_t xKey(int kernel) {
    return xcb_keycode_t(kernel + 8);
}

/// A finger on a keyboard, and a window that the keys go to: two connections, as they would be two programs.
/// One thread.
class Finger {
public:
    Finger() : keyboard_(xcb_connect(nullptr, nullptr)), window_(xcb_connect(nullptr, nullptr)) {
        const XcbReply<xcb_input_xi_query_version_reply_t> version(xcb_input_xi_query_version_reply(
            keyboard_, xcb_input_xi_query_version(keyboard_, 2, 2), nullptr));
        pressType_ = std::uint8_t(xcb_get_extension_data(keyboard_, &xcb_input_id)->first_event +
                                  XCB_INPUT_DEVICE_KEY_PRESS);
        for (const KeyDevice &device : keyDevices(keyboard_))
            if (!device.typesForPrograms)
                device_ = std::uint8_t(device.id);
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(window_)).data->root;
        const xcb_window_t window = xcb_generate_id(window_);
        const std::uint32_t values[] = {true, XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE};
        xcb_create_window(window_, XCB_COPY_FROM_PARENT, window, root, 0, 0, 50, 50, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
        xcb_map_window(window_, window);
        xcb_set_input_focus(window_, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
        roundTrip(window_);
    }
    ~Finger() {
        xcb_disconnect(keyboard_);
        xcb_disconnect(window_);
    }
    Finger(const Finger &) = delete;
    Finger &operator=(const Finger &) = delete;

    /// Answers after how many microseconds the window has the key.
    double press(int key, bool down) {
        QElapsedTimer elapsed;
        elapsed.start();
        xcb_test_fake_input(keyboard_, down ? pressType_ : std::uint8_t(pressType_ + 1), xKey(key),
                            XCB_CURRENT_TIME, XCB_NONE, 0, 0, device_);
        xcb_flush(keyboard_);
        for (;;) {
            const XcbReply<xcb_generic_event_t> event(xcb_wait_for_event(window_));
            if (!event)
                qFatal("the X server is gone");
            const int type = event->response_type & 0x7f;
            const auto &got = reinterpret_cast<const xcb_key_press_event_t &>(*event);
            if (type == (down ? XCB_KEY_PRESS : XCB_KEY_RELEASE) && got.detail == xKey(key))
                return double(elapsed.nsecsElapsed()) / 1e3;
        }
    }

    /// Presses C again and again, with Control held.
    std::vector<double> chords(int count) {
        std::vector<double> samples;
        press(KEY_LEFTCTRL, true);
        for (int i = 0; i < count; ++i) {
            samples.push_back(press(KEY_C, true));
            press(KEY_C, false);
        }
        press(KEY_LEFTCTRL, false);
        return samples;
    }

private:
    xcb_connection_t *keyboard_;
    xcb_connection_t *window_;
    std::uint8_t pressType_ = 0;
    std::uint8_t device_ = 0;
};

/// Types on a thread of its own, while this one turns its event loop or is stopped.
std::vector<double> type(int count, bool stopped) {
    std::vector<double> samples;
    std::atomic<bool> done = false;
    std::thread typist([&] {
        Finger finger;
        finger.chords(20);
        samples = finger.chords(count);
        done = true;
    });
    while (!done) {
        if (stopped)
            QThread::msleep(500);
        else
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5), QThread::msleep(1);
    }
    typist.join();
    return samples;
}

void add(Table &table, const QString &name, std::vector<double> samples, const std::vector<double> &plain) {
    const double late = quantile(samples, 0.99) - quantile(plain, 0.99);
    for (double &sample : samples)
        sample -= quantile(plain, 0.5);
    table.add({QStringLiteral("key tap, added, %1").arg(name), QStringLiteral("us"), 40, std::move(samples)});
    table.add({QStringLiteral("key tap, added at p99, %1").arg(name), QStringLiteral("us"), 500, {late}});
}

}  // namespace

void measureKeyTap(Table &table, Extent extent) {
    const test::DesktopSession desktop({.windowManager = {}, .serverArguments = {}});
    const int count = extent.quick ? 500 : 5000;
    X11Session session;
    X11RawInput input(session);
    X11Keyboard keyboard(session, input);
    X11KeyTap tap(keyboard, QStringLiteral(KEY_GUARD));
    const auto filter = std::make_shared<test::SwapFilter>();

    const std::vector<double> plain = type(count, false);
    const QString name = QStringLiteral("key press to window");
    table.add({name, QStringLiteral("us"), std::nullopt, plain, QStringLiteral("the bare X server")});
    Figure install{QStringLiteral("key tap, installed"), QStringLiteral("ms"), std::nullopt, {}};
    Figure remove{QStringLiteral("key tap, removed"), QStringLiteral("ms"), 50, {}};
    for (int round = 0; round < 20; ++round) {
        QElapsedTimer elapsed;
        elapsed.start();
        if (!tap.install(filter))
            qFatal("the keyboard cannot be had");
        install.samples.push_back(double(elapsed.nsecsElapsed()) / 1e6);
        elapsed.start();
        tap.remove();
        remove.samples.push_back(double(elapsed.nsecsElapsed()) / 1e6);
    }
    table.add(install);
    table.add(remove);
    if (!tap.install(filter))
        qFatal("the keyboard cannot be had");
    filter->swaps = false;
    add(table, QStringLiteral("every key as it is"), type(count, false), plain);
    filter->swaps = true;
    const std::vector<double> swapped = type(count, false);
    table.add({name, QStringLiteral("us"), std::nullopt, swapped});
    add(table, QStringLiteral("Control and Command swapped"), swapped, plain);
    add(table, QStringLiteral("the same, main thread stopped"), type(count, true), plain);
}

}  // namespace pimloft::bench
