// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>
#include <vector>

namespace pimloft {

/// What an element of a window is, by the numbers of AT-SPI. Others come as they are.
enum class AccessibleRole : std::uint32_t {
    checkBox = 7,
    icon = 26,
    image = 27,
    label = 29,
    layeredPane = 30,
    list = 31,
    menu = 33,
    menuBar = 34,
    popupMenu = 41,
    pushButton = 43,
    radioButton = 44,
    scrollBar = 48,
    statusBar = 54,
    table = 55,
    text = 61,
    toggleButton = 62,
    tree = 65,
    treeTable = 66,
    entry = 79,
};

/// An element of a window as it tells programs that read the screen to people. A value.
struct AccessibleNode {
    int parent = -1;  ///< its place in the tree; -1 for the window itself
    AccessibleRole role{};
    std::uint64_t states = 0;
    QString name = {};  ///< of what can be pressed
    QString text = {};  ///< of what can be typed into

    /// By the numbers of AT-SPI.
    enum State { active = 1, checked = 4, focused = 12, showing = 25 };
    bool has(State state) const { return states >> state & 1; }
};

/// The elements of a window: each after its parent, siblings in their order.
using AccessibleTree = std::vector<AccessibleNode>;

/// Whether what is typed goes into a text: a name that is being changed, a location. Pure.
bool hasFocusedText(const AccessibleTree &tree);

}  // namespace pimloft
