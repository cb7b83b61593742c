// SPDX-License-Identifier: MIT
#include "windowsnap/scenario_player.h"

#include "app/settings_keys.h"

#include <gtest/gtest.h>

namespace pimloft::test {

namespace {

const std::map<QString, KeyCode> keys{
    {QStringLiteral("left"), Key::leftArrow}, {QStringLiteral("right"), Key::rightArrow},
    {QStringLiteral("up"), Key::upArrow},     {QStringLiteral("down"), Key::downArrow},
    {QStringLiteral("1"), Key::digit1},       {QStringLiteral("2"), Key::digit2},
    {QStringLiteral("3"), Key::digit3},       {QStringLiteral("4"), Key::digit4},
    {QStringLiteral("5"), Key::digit5},       {QStringLiteral("6"), Key::digit6},
};

double number(const QStringList &arguments, int index) {
    bool ok = false;
    const double value = arguments.value(index).toDouble(&ok);
    EXPECT_TRUE(ok) << "argument " << index + 1 << " is missing or no number";
    return value;
}

QPointF point(const QStringList &arguments) {
    return {number(arguments, 0), number(arguments, 1)};
}

QRectF rectangle(const QStringList &arguments, int first) {
    return {number(arguments, first), number(arguments, first + 1), number(arguments, first + 2),
            number(arguments, first + 3)};
}

}  // namespace

ScenarioPlayer::ScenarioPlayer() {
    engine_.start();
    desktop_.log();
}

QString ScenarioPlayer::play(const Scenario &scenario) {
    QStringList transcript;
    for (const QString &step : scenario.lines) {
        if (step.startsWith(scenarioIndent))
            continue;
        QStringList words = step.simplified().split(u' ');
        perform(words.takeFirst(), words);
        QCoreApplication::processEvents();
        transcript << step;
        const QStringList log = QString::fromStdString(desktop_.log()).split(u'\n', Qt::SkipEmptyParts);
        for (const QString &line : log + std::exchange(answers_, {}))
            transcript << scenarioIndent + line;
    }
    return transcript.join(u'\n');
}

void ScenarioPlayer::perform(const QString &verb, const QStringList &arguments) {
    const QString first = arguments.value(0);
    const auto displayId = [&] { return DisplayId(std::uint32_t(number(arguments, 0))); };
    const std::map<QString, std::function<void()>> verbs{
        {QStringLiteral("display"),
         [&] {
             const QRectF frame = rectangle(arguments, 1);
             desktop_.displays.list.push_back(
                 {displayId(), frame, arguments.size() > 5 ? rectangle(arguments, 5) : frame});
         }},
        {QStringLiteral("disconnect"),
         [&] {
             std::erase_if(desktop_.displays.list,
                           [id = displayId()](const Display &display) { return display.id == id; });
         }},
        {QStringLiteral("main"), [&] { desktop_.displays.main = displayId(); }},
        {QStringLiteral("window"),
         [&] {
             windows_[first] =
                 &desktop_.windows.open(first, ProcessId(int(number(arguments, 1))), rectangle(arguments, 2));
         }},
        {QStringLiteral("focus"), [&] { desktop_.windows.focus(&window(first)); }},
        {QStringLiteral("unfocus"), [&] { desktop_.windows.focus(nullptr); }},
        {QStringLiteral("close"), [&] { window(first).gone = true; }},
        {QStringLiteral("unreadable"), [&] { window(first).readable = false; }},
        {QStringLiteral("anonymous"), [&] { window(first).processKnown = false; }},
        {QStringLiteral("sensitivity"),
         [&] { desktop_.preferences.stored[SettingsKeys::snapSensitivity] = number(arguments, 0); }},
        {QStringLiteral("down"), [&] { desktop_.mouse.down(point(arguments)); }},
        {QStringLiteral("drag"), [&] { desktop_.mouse.drag(point(arguments)); }},
        {QStringLiteral("up"), [&] { desktop_.mouse.up(point(arguments)); }},
        {QStringLiteral("press"), [&] { desktop_.hotkeys.press(keys.at(first), snapModifiers); }},
        {QStringLiteral("wait"), [&] { clock_.pass(int(number(arguments, 0))); }},
        {QStringLiteral("overlay?"), [&] { describeOverlay(); }},
        {QStringLiteral("stop"), [&] { engine_.stop(); }},
        {QStringLiteral("start"),
         [&] {
             engine_.start();
             desktop_.log();
         }},
    };
    const auto found = verbs.find(verb);
    ASSERT_NE(found, verbs.end()) << "no step is called " << verb.toStdString();
    found->second();
}

void ScenarioPlayer::describeOverlay() {
    const auto &panels = desktop_.panels.existing();
    answers_ << (panels.empty() ? QStringLiteral("none") : describe(panels.front()->frame()));
}

FakeWindows::Window &ScenarioPlayer::window(const QString &name) {
    return *windows_.at(name);
}

}  // namespace pimloft::test
