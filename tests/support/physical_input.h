// SPDX-License-Identifier: MIT
#pragma once

#include <linux/input-event-codes.h>

#include <QPoint>
#include <QSet>

#include <initializer_list>
#include <memory>
#include <vector>

namespace pimloft::test {

/// The user's hands on the keyboard and mouse of the current $DISPLAY, an Xvfb.
///
/// Keys are pressed on the server's keyboard device, as hardware would, and not on its XTEST device, which is
/// where programs type. They are named by KEY_... of linux/input-event-codes.h. Points are native pixels from
/// the root's top-left corner. Every call returns when the server has carried it out; programs learn of it
/// later. Keys and buttons that are still down are let go with the object.
class PhysicalInput {
public:
    PhysicalInput();
    ~PhysicalInput();
    PhysicalInput(const PhysicalInput &) = delete;
    PhysicalInput &operator=(const PhysicalInput &) = delete;

    void press(int key);
    void release(int key);
    void tap(int key);
    /// Presses all in the given order and lets them go in the reverse order: chord({KEY_LEFTCTRL, KEY_V}).
    void chord(std::initializer_list<int> keys);
    /// Types what is printed on a US keyboard.
    void type(const char *text);

    QPoint position() const;
    void moveTo(QPoint native);
    /// Moves in a straight line, one motion a millisecond for `milliseconds`, while the event loop
    /// turns.
    void glideTo(QPoint native, int milliseconds = 40);
    void leftDown();
    void leftUp();
    void buttonDown(int button);
    void buttonUp(int button);
    void click(QPoint native);
    void doubleClick(QPoint native);
    /// Presses at the first point, glides through the others and releases at the last.
    void drag(const std::vector<QPoint> &path);

    /// The keys that are down as the programs see it, and those that are down on the XTEST device. Codes as
    /// above.
    QSet<int> keysDown() const;
    QSet<int> keysDownOnXTest() const;

    /// Whether some program has the keyboard for itself.
    bool isKeyboardTaken() const;

private:
    struct Server;
    std::unique_ptr<Server> server_;
    std::vector<int> keys_;
    std::vector<int> buttons_;
};

}  // namespace pimloft::test
