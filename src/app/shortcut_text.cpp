// SPDX-License-Identifier: MIT
#include "app/shortcut_text.h"

#include <QStringList>

#include <array>
#include <utility>

namespace pimloft {

namespace {

constexpr std::array modifierNames{
    std::pair{CarbonModifiers::control, "Control"},
    std::pair{CarbonModifiers::option, "Alt"},
    std::pair{CarbonModifiers::shift, "Shift"},
    std::pair{CarbonModifiers::command, "Super"},
};

constexpr std::array keyNames{
    std::pair{Key::x, "X"},
    std::pair{Key::c, "C"},
    std::pair{Key::v, "V"},
    std::pair{Key::digit1, "1"},
    std::pair{Key::digit2, "2"},
    std::pair{Key::digit3, "3"},
    std::pair{Key::digit4, "4"},
    std::pair{Key::digit5, "5"},
    std::pair{Key::digit6, "6"},
    std::pair{Key::leftArrow, "Left"},
    std::pair{Key::rightArrow, "Right"},
    std::pair{Key::downArrow, "Down"},
    std::pair{Key::upArrow, "Up"},
};

}  // namespace

QString shortcutText(KeyCode key, CarbonModifiers modifiers) {
    QStringList words;
    for (const auto &[modifier, name] : modifierNames)
        if (contains(modifiers, modifier))
            words << QLatin1String(name);
    QString keyName = QStringLiteral("key %1").arg(std::uint16_t(key));
    for (const auto &[code, name] : keyNames)
        if (code == key)
            keyName = QLatin1String(name);
    words << keyName;
    return words.join(QLatin1Char('+'));
}

}  // namespace pimloft
