// SPDX-License-Identifier: MIT
#include "support/physical_input.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

#include <algorithm>

#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/XInput.h>
#include <X11/extensions/XInput2.h>
#include <X11/extensions/XTest.h>

namespace pimloft::test {

namespace {

/// X key codes are the kernel's, shifted.
constexpr int firstKeyCode = 8;

QSet<int> keysIn(const char (&bits)[32]) {
    QSet<int> keys;
    for (int code = firstKeyCode; code < 256; ++code)
        if (bits[code / 8] & (1 << (code % 8)))
            keys.insert(code - firstKeyCode);
    return keys;
}

}  // namespace

struct PhysicalInput::Server {
    Display *display = XOpenDisplay(nullptr);
    XDevice *keyboard = nullptr;
    XDevice *xtest = nullptr;

    Server() {
        if (!display)
            qFatal("no display for physical input");
        // A server that goes away is no end of the test.
        XSetIOErrorHandler([](Display *) { return 0; });
        XSetIOErrorExitHandler(
            display, [](Display *, void *) {}, nullptr);
        // Hands are not held up by a window manager that grabs the server.
        XTestGrabControl(display, True);
        int major = 2;
        int minor = 2;
        XIQueryVersion(display, &major, &minor);
        int count = 0;
        XIDeviceInfo *devices = XIQueryDevice(display, XIAllDevices, &count);
        for (XIDeviceInfo *device = devices; device != devices + count; ++device) {
            if (device->use != XISlaveKeyboard && device->use != XIFloatingSlave)
                continue;
            const bool hasKeys =
                std::any_of(device->classes, device->classes + device->num_classes,
                            [](const XIAnyClassInfo *each) { return each->type == XIKeyClass; });
            XDevice *&place = isXTest(device->deviceid) ? xtest : keyboard;
            if (hasKeys && !place)
                place = XOpenDevice(display, XID(device->deviceid));
        }
        XIFreeDeviceInfo(devices);
        if (!keyboard || !xtest)
            qFatal("no keyboard device on the display");
    }

    ~Server() {
        XCloseDevice(display, keyboard);
        XCloseDevice(display, xtest);
        XCloseDisplay(display);
    }

    bool isXTest(int device) const {
        Atom type = 0;
        int format = 0;
        unsigned long length = 0;
        unsigned long rest = 0;
        unsigned char *data = nullptr;
        XIGetProperty(display, device, XInternAtom(display, "XTEST Device", False), 0, 1, False, XA_INTEGER,
                      &type, &format, &length, &rest, &data);
        const bool marked = length == 1 && data && *data;
        if (data)
            XFree(data);
        return marked;
    }

    void key(int code, bool down) {
        XTestFakeDeviceKeyEvent(display, keyboard, unsigned(code + firstKeyCode), down, nullptr, 0,
                                CurrentTime);
        XSync(display, False);
    }
};

PhysicalInput::PhysicalInput() : server_(std::make_unique<Server>()) {
}

PhysicalInput::~PhysicalInput() {
    while (!keys_.empty())
        release(keys_.back());
    while (!buttons_.empty())
        buttonUp(buttons_.back());
}

void PhysicalInput::press(int key) {
    keys_.push_back(key);
    server_->key(key, true);
}

void PhysicalInput::release(int key) {
    std::erase(keys_, key);
    server_->key(key, false);
}

void PhysicalInput::tap(int key) {
    press(key);
    release(key);
}

void PhysicalInput::chord(std::initializer_list<int> keys) {
    for (int key : keys)
        press(key);
    for (auto key = std::rbegin(keys); key != std::rend(keys); ++key)
        release(*key);
}

void PhysicalInput::type(const char *text) {
    // Rows of the keyboard: their key codes follow each other.
    static constexpr struct {
        const char *plain;
        const char *shifted;
        int first;
    } rows[] = {{"1234567890-=", "!@#$%^&*()_+", KEY_1},
                {"qwertyuiop[]", "QWERTYUIOP{}", KEY_Q},
                {"asdfghjkl;'`", "ASDFGHJKL:\"~", KEY_A},
                {"\\zxcvbnm,./", "|ZXCVBNM<>?", KEY_BACKSLASH}};
    for (; *text; ++text) {
        if (*text == ' ')
            tap(KEY_SPACE);
        if (*text == '\n')
            tap(KEY_ENTER);
        for (const auto &row : rows) {
            if (const char *found =
                    std::find(row.plain, row.plain + std::char_traits<char>::length(row.plain), *text);
                *found)
                tap(row.first + int(found - row.plain));
            else if (const char *upper = std::find(
                         row.shifted, row.shifted + std::char_traits<char>::length(row.shifted), *text);
                     *upper)
                chord({KEY_LEFTSHIFT, row.first + int(upper - row.shifted)});
        }
    }
}

QPoint PhysicalInput::position() const {
    Window root = 0;
    Window child = 0;
    int x = 0;
    int y = 0;
    int windowX = 0;
    int windowY = 0;
    unsigned mask = 0;
    XQueryPointer(server_->display, DefaultRootWindow(server_->display), &root, &child, &x, &y, &windowX,
                  &windowY, &mask);
    return {x, y};
}

void PhysicalInput::moveTo(QPoint native) {
    XTestFakeMotionEvent(server_->display, -1, native.x(), native.y(), CurrentTime);
    XSync(server_->display, False);
}

void PhysicalInput::glideTo(QPoint native, int milliseconds) {
    const QPoint from = position();
    QElapsedTimer elapsed;
    elapsed.start();
    for (int step = 1; step <= milliseconds; ++step) {
        moveTo(from + (native - from) * (double(step) / milliseconds));
        if (QCoreApplication::instance())
            QCoreApplication::processEvents();
        const qint64 early = qint64(step) * 1000 - elapsed.nsecsElapsed() / 1000;
        if (early > 0)
            QThread::usleep(static_cast<unsigned long>(early));
    }
    moveTo(native);
}

void PhysicalInput::leftDown() {
    buttonDown(1);
}

void PhysicalInput::leftUp() {
    buttonUp(1);
}

void PhysicalInput::buttonDown(int button) {
    buttons_.push_back(button);
    XTestFakeButtonEvent(server_->display, unsigned(button), True, CurrentTime);
    XSync(server_->display, False);
}

void PhysicalInput::buttonUp(int button) {
    std::erase(buttons_, button);
    XTestFakeButtonEvent(server_->display, unsigned(button), False, CurrentTime);
    XSync(server_->display, False);
}

void PhysicalInput::click(QPoint native) {
    moveTo(native);
    leftDown();
    leftUp();
}

void PhysicalInput::doubleClick(QPoint native) {
    click(native);
    click(native);
}

void PhysicalInput::drag(const std::vector<QPoint> &path) {
    moveTo(path.front());
    leftDown();
    for (auto point = path.begin() + 1; point != path.end(); ++point)
        glideTo(*point);
    leftUp();
}

QSet<int> PhysicalInput::keysDown() const {
    char bits[32] = {};
    XQueryKeymap(server_->display, bits);
    return keysIn(bits);
}

QSet<int> PhysicalInput::keysDownOnXTest() const {
    char bits[32] = {};
    XDeviceState *state = XQueryDeviceState(server_->display, server_->xtest);
    const XInputClass *each = state->data;
    for (int i = 0; i < state->num_classes; ++i) {
        if (each->c_class == KeyClass)
            std::copy_n(reinterpret_cast<const XKeyState *>(each)->keys, sizeof bits, bits);
        each = reinterpret_cast<const XInputClass *>(reinterpret_cast<const char *>(each) + each->length);
    }
    XFreeDeviceState(state);
    return keysIn(bits);
}

bool PhysicalInput::isKeyboardTaken() const {
    int count = 0;
    XIDeviceInfo *device = XIQueryDevice(server_->display, int(server_->keyboard->device_id), &count);
    if (!device)
        return false;
    const bool isTaken = device->use == XIFloatingSlave;
    XIFreeDeviceInfo(device);
    return isTaken;
}

}  // namespace pimloft::test
