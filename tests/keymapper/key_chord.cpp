// SPDX-License-Identifier: MIT
#include "keymapper/key_chord.h"

#include "platform/x11/key_positions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace pimloft::test {

namespace {

/// In the order in which a chord names and presses them.
constexpr std::array modifiers{
    ModifierKey{"Fn", KeyCode{63}, KeyFlags::function},
    ModifierKey{"Control", KeyCode{59}, KeyFlags::control},
    ModifierKey{"Option", KeyCode{58}, KeyFlags::option},
    ModifierKey{"Shift", KeyCode{56}, KeyFlags::shift},
    ModifierKey{"Command", KeyCode{55}, KeyFlags::command},
    ModifierKey{"RightShift", Key::rightShift, KeyFlags::shift},
};

struct NamedKey {
    const char *name;
    KeyCode key;
};

constexpr std::array keys{
    NamedKey{"Tab", Key::tab},
    NamedKey{"Space", Key::space},
    NamedKey{"Backspace", Key::backspace},
    NamedKey{"Delete", Key::forwardDelete},
    NamedKey{"Home", Key::home},
    NamedKey{"End", Key::end},
    NamedKey{"Left", Key::leftArrow},
    NamedKey{"Right", Key::rightArrow},
    NamedKey{"Up", Key::upArrow},
    NamedKey{"Down", Key::downArrow},
    NamedKey{"Return", KeyCode{36}},
    NamedKey{"Insert", KeyCode{114}},
    NamedKey{"F9", KeyCode{101}},
};

template <typename Table>
auto byName(const Table &table, const QString &name) {
    return std::find_if(table.begin(), table.end(),
                        [&](const auto &each) { return name == QLatin1String(each.name); });
}

}  // namespace

std::optional<ModifierKey> modifierKey(const QString &name) {
    const auto found = byName(modifiers, name);
    return found == modifiers.end() ? std::nullopt : std::optional(*found);
}

std::vector<ModifierKey> modifierKeys(KeyFlags flags) {
    std::vector<ModifierKey> held;
    for (const ModifierKey &each : modifiers)
        if (each.key != Key::rightShift && contains(flags, each.flag))
            held.push_back(each);
    return held;
}

KeyCode keyOfName(const QString &name) {
    if (const auto modifier = modifierKey(name))
        return modifier->key;
    if (const auto found = byName(keys, name); found != keys.end())
        return found->key;
    const auto letter = std::find_if(keyPositions.begin(), keyPositions.end(), [&](const KeyPosition &each) {
        return each.letter && name == QLatin1Char(each.letter);
    });
    EXPECT_NE(letter, keyPositions.end()) << "no key is called " << name.toStdString();
    return letter == keyPositions.end() ? KeyCode{} : letter->key;
}

KeyChord chordOfText(const QString &text) {
    QStringList names = text.split(u'+');
    KeyChord chord{keyOfName(names.takeLast()), {}};
    for (const QString &name : names) {
        const auto modifier = modifierKey(name);
        EXPECT_TRUE(modifier) << name.toStdString() << " is no modifier";
        if (modifier)
            chord.flags = chord.flags | modifier->flag;
    }
    return chord;
}

QString textOfChord(const KeyChord &chord) {
    QStringList names;
    for (const ModifierKey &modifier : modifierKeys(chord.flags))
        names << QString::fromLatin1(modifier.name);
    const auto named = [&](const auto &each) { return each.key == chord.key; };
    const auto letter = std::find_if(keyPositions.begin(), keyPositions.end(), named);
    if (const auto key = std::find_if(keys.begin(), keys.end(), named); key != keys.end())
        names << QString::fromLatin1(key->name);
    else if (const auto modifier = std::find_if(modifiers.begin(), modifiers.end(), named);
             modifier != modifiers.end())
        names << QString::fromLatin1(modifier->name);
    else if (letter != keyPositions.end() && letter->letter)
        names << QString(QLatin1Char(letter->letter));
    else
        names << QString::number(std::uint16_t(chord.key));
    return names.join(u'+');
}

RuleText ruleOfText(const QString &text) {
    const QStringList parts = text.split(QStringLiteral(" except "));
    const QStringList keys = parts.first().split(QStringLiteral(" > "));
    EXPECT_EQ(keys.size(), 2) << "no rule: " << text.toStdString();
    return {chordOfText(keys.value(0)), chordOfText(keys.value(1)),
            parts.value(1).split(u' ', Qt::SkipEmptyParts)};
}

std::optional<int> kernelKey(KeyCode key) {
    const auto found = std::find_if(keyPositions.begin(), keyPositions.end(),
                                    [&](const KeyPosition &each) { return each.key == key; });
    return found == keyPositions.end() ? std::nullopt : std::optional(int(found->kernel));
}

}  // namespace pimloft::test
