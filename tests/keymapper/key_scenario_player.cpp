// SPDX-License-Identifier: MIT
#include "keymapper/key_scenario_player.h"

#include "keymapper/key_mapping_document.h"

#include <QCoreApplication>

#include <functional>
#include <map>

namespace pimloft::test {

namespace {

QString textOf(const KeyEvent &event) {
    return textOfChord({event.key, event.flags});
}

}  // namespace

KeyScenarioPlayer::KeyScenarioPlayer() {
    session_.module->activate();
    bringToFront(QStringLiteral("org.mozilla.firefox"));
}

QString KeyScenarioPlayer::play(const Scenario &scenario) {
    QStringList transcript;
    for (const QString &step : scenario.lines) {
        if (step.startsWith(scenarioIndent))
            continue;
        perform(step.section(u' ', 0, 0), step.section(u' ', 1));
        settle();
        transcript << step;
        for (const QString &line : std::exchange(followed_, {}))
            transcript << scenarioIndent + line;
    }
    end();
    return transcript.join(u'\n');
}

void KeyScenarioPlayer::settle() {
    if (!isMainThreadBusy_)
        QCoreApplication::processEvents();
    const QString log = QString::fromStdString(session_.desktop.log());
    for (const QString &line : log.split(u'\n', Qt::SkipEmptyParts)) {
        if (!line.startsWith(QStringLiteral("alert: ")))
            continue;
        followed_ << QStringLiteral("alert ") + line.section(u' ', 1).section(QStringLiteral(" | "), 0, 0);
        session_.desktop.dialogs.closeAlert();
    }
}

void KeyScenarioPlayer::perform(const QString &verb, const QString &rest) {
    const std::map<QString, std::function<void()>> verbs{
        {QStringLiteral("preset"), [&] { setPreset(rest, true); }},
        {QStringLiteral("unset"), [&] { setPreset(rest, false); }},
        {QStringLiteral("rule"), [&] { addRule(rest); }},
        {QStringLiteral("unrule"),
         [&] {
             session_.page().removeCustomMapping(session_.store->customMappings().front().id.toString());
         }},
        {QStringLiteral("module"), [&] { session_.module->setEnabled(rest == QLatin1String("on")); }},
        {QStringLiteral("front"), [&] { bringToFront(rest); }},
        {QStringLiteral("press"), [&] { press(chordOfText(rest)); }},
        {QStringLiteral("down"), [&] { turn(rest, true); }},
        {QStringLiteral("up"), [&] { turn(rest, false); }},
        {QStringLiteral("wait"), [&] { now_ += std::chrono::milliseconds(rest.toInt()); }},
        {QStringLiteral("unplug"), [&] { heldModifiers_.clear(); }},
        {QStringLiteral("timeout"),
         [&] { session_.desktop.keyTap.disable(KeyTap::Notice::disabledByTimeout); }},
        {QStringLiteral("distrust"),
         [&] { session_.desktop.keyTap.disable(KeyTap::Notice::disabledByUserInput); }},
        {QStringLiteral("busy"), [&] { isMainThreadBusy_ = true; }},
        {QStringLiteral("idle"), [&] { isMainThreadBusy_ = false; }},
        {QStringLiteral("quit"), [&] { end(); }},
        {QStringLiteral("crash"), [&] { end(); }},
        {QStringLiteral("launch"),
         [&] {
             session_.open();
             session_.module->activate();
         }},
    };
    const auto found = verbs.find(verb);
    ASSERT_NE(found, verbs.end()) << "no step is called " << verb.toStdString();
    found->second();
}

void KeyScenarioPlayer::end() {
    session_.module.reset();
    session_.engine.reset();
}

void KeyScenarioPlayer::setPreset(const QString &name, bool on) {
    const auto preset = presetOfRawValue(name);
    ASSERT_TRUE(preset) << name.toStdString();
    session_.page().setPreset(int(*preset), on);
    session_.page().confirmPreset();
}

void KeyScenarioPlayer::addRule(const QString &text) {
    KeyMappings rules = session_.store->customMappings();
    const RuleText rule = ruleOfText(text);
    rules.push_back({.fromKeyCode = rule.from.key,
                     .fromModifiers = rule.from.flags,
                     .toKeyCode = rule.to.key,
                     .toModifiers = rule.to.flags,
                     .excludedApps = rule.except});
    ASSERT_TRUE(session_.store->importMappings(encode(ExportedMappings{{}, rules})));
    session_.module->reloadMappings();
}

void KeyScenarioPlayer::bringToFront(const QString &identifier) {
    const bool isKnown = identifier != QLatin1String("nobody");
    session_.desktop.workspace.bringToFront(
        {identifier, isKnown ? std::optional(identifier) : std::nullopt, ProcessId(1)});
}

void KeyScenarioPlayer::press(const KeyChord &chord) {
    const std::vector<ModifierKey> modifiers = modifierKeys(chord.flags);
    for (const ModifierKey &modifier : modifiers)
        turnModifier(modifier, true);
    const KeyEvent down = send(chord.key, KeyEventType::down);
    const KeyEvent up = send(chord.key, KeyEventType::up);
    for (auto modifier = modifiers.rbegin(); modifier != modifiers.rend(); ++modifier)
        turnModifier(*modifier, false);
    followed_ << textOf(down);
    if (textOf(up) != textOf(down))
        followed_ << QStringLiteral("released as ") + textOf(up);
}

void KeyScenarioPlayer::turn(const QString &name, bool down) {
    if (const auto modifier = modifierKey(name))
        return turnModifier(*modifier, down);
    const KeyEvent event = send(keyOfName(name), down ? KeyEventType::down : KeyEventType::up);
    followed_ << (down ? QString() : QStringLiteral("released ")) + textOf(event);
}

void KeyScenarioPlayer::turnModifier(const ModifierKey &modifier, bool down) {
    if (down)
        heldModifiers_.insert(modifier.key);
    else
        heldModifiers_.erase(modifier.key);
    const KeyEvent event = send(modifier.key, KeyEventType::flagsChanged);
    if (event != KeyEvent{modifier.key, held(), KeyEventType::flagsChanged})
        followed_ << QStringLiteral("changed to ") + textOf(event);
}

KeyEvent KeyScenarioPlayer::send(KeyCode key, KeyEventType type) {
    return session_.desktop.keyTap.press({key, held(), type}, now_);
}

KeyFlags KeyScenarioPlayer::held() const {
    KeyFlags flags{};
    for (const KeyCode key : heldModifiers_)
        flags = flags | modifierKey(textOfChord({key, {}}))->flag;
    return flags;
}

}  // namespace pimloft::test
