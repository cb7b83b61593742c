// SPDX-License-Identifier: MIT
#include "desktop/support/key_stories.h"

#include "desktop/support/first_run.h"
#include "platform/x11/key_positions.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>
#include <QUuid>

#include <algorithm>
#include <csignal>

namespace pimloft::test {

namespace {

const QString firstFront = QStringLiteral("org.mozilla.firefox");

/// The window class by which the program with that identifier is known.
const std::map<QString, QByteArray> windowClasses{
    {firstFront, "firefox"},
    {QStringLiteral("com.google.Chrome"), "google-chrome"},
    {QStringLiteral("com.apple.Terminal"), "xterm"},
    {QStringLiteral("net.kovidgoyal.kitty"), "kitty"},
    {QStringLiteral("com.mitchellh.ghostty"), "com.mitchellh.ghostty"},
    {QStringLiteral("nobody"), "some-window-of-a-test"},
};

bool isSetting(const QString &verb) {
    return verb == QLatin1String("preset") || verb == QLatin1String("rule");
}

bool isOnKeyboard(const KeyChord &chord) {
    return kernelKey(chord.key) && !contains(chord.flags, KeyFlags::function);
}

bool isPlayable(const QString &verb, const QString &rest) {
    if (verb == QLatin1String("press"))
        return isOnKeyboard(chordOfText(rest));
    if (verb == QLatin1String("down") || verb == QLatin1String("up"))
        return kernelKey(keyOfName(rest)).has_value();
    if (verb == QLatin1String("rule"))
        return isOnKeyboard(ruleOfText(rest).from) && isOnKeyboard(ruleOfText(rest).to);
    if (verb == QLatin1String("front"))
        return windowClasses.count(rest) > 0;
    if (verb == QLatin1String("wait"))
        return rest.toInt() > 1000;
    return verb == QLatin1String("preset") || verb == QLatin1String("quit") ||
           verb == QLatin1String("crash") || verb == QLatin1String("launch");
}

/// "Control Super AB03" becomes "Control+Command+c".
QString textOfTyped(const QString &typed) {
    static const std::map<QString, KeyFlags> words{{QStringLiteral("Control"), KeyFlags::control},
                                                   {QStringLiteral("Alt"), KeyFlags::option},
                                                   {QStringLiteral("Super"), KeyFlags::command},
                                                   {QStringLiteral("Shift"), KeyFlags::shift}};
    QStringList names = typed.split(u' ');
    const QString position = names.takeLast();
    KeyChord chord;
    for (const QString &name : names)
        if (const auto word = words.find(name); word != words.end())
            chord.flags = chord.flags | word->second;
    for (const KeyPosition &each : keyPositions)
        if (position == QLatin1String(each.name))
            chord.key = each.key;
    return textOfChord(chord);
}

/// What the start and the end of a line are on this desktop, where a rule has made them.
KeyChord asOnDesktop(KeyChord expected, KeyCode pressed) {
    const bool isArrow = expected.key == Key::leftArrow || expected.key == Key::rightArrow;
    if (!isArrow || expected.key == pressed || !contains(expected.flags, KeyFlags::command))
        return expected;
    return {expected.key == Key::leftArrow ? Key::home : Key::end, expected.flags - KeyFlags::command};
}

QJsonObject mappingOf(const RuleText &rule) {
    return {{QStringLiteral("id"), QUuid::createUuid().toString(QUuid::WithoutBraces)},
            {QStringLiteral("fromKeyCode"), int(rule.from.key)},
            {QStringLiteral("fromModifiersRaw"), qint64(rule.from.flags)},
            {QStringLiteral("toKeyCode"), int(rule.to.key)},
            {QStringLiteral("toModifiersRaw"), qint64(rule.to.flags)},
            {QStringLiteral("excludedApps"), QJsonArray::fromStringList(rule.except)}};
}

void write(const QString &path, const QJsonDocument &document) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(document.toJson());
}

}  // namespace

bool isPlayableOnDesktop(const Scenario &story) {
    bool hasBegun = false;
    for (const QString &line : story.lines) {
        if (line.startsWith(scenarioIndent))
            continue;
        const QString verb = line.section(u' ', 0, 0);
        if (!isPlayable(verb, line.section(u' ', 1)) || (hasBegun && isSetting(verb)))
            return false;
        hasBegun = hasBegun || !isSetting(verb);
    }
    return true;
}

std::vector<KeyStoryTest::Step> KeyStoryTest::stepsOf(const Scenario &story) {
    std::vector<Step> steps;
    for (const QString &line : story.lines) {
        if (line.startsWith(scenarioIndent))
            steps.back().followed << line.trimmed();
        else
            steps.push_back({line.section(u' ', 0, 0), line.section(u' ', 1), {}});
    }
    return steps;
}

void KeyStoryTest::play(const Scenario &story) {
    const std::vector<Step> steps = stepsOf(story);
    storeSettings(steps);
    launch();
    bringToFront(firstFront);
    for (const Step &step : steps) {
        SCOPED_TRACE((step.verb + u' ' + step.rest).toStdString());
        if (isSetting(step.verb))
            continue;
        perform(step);
        expectTyped(step);
        if (HasFatalFailure())
            return;
    }
    // Nothing came that was not expected, and no key is left down.
    hands().tap(KEY_F9);
    EXPECT_TRUE(waitUntil([this] {
        typed_ << sink().typed().split(QStringLiteral(", "), Qt::SkipEmptyParts);
        return !typed_.isEmpty() && typed_.last().endsWith(QLatin1String("FK09"));
    })) << "the keyboard is dead";
    EXPECT_EQ(std::exchange(typed_, {}).join(u' ').toStdString(), "FK09");
    EXPECT_TRUE(waitUntil([this] { return hands().keysDown().isEmpty(); })) << "a key is stuck";
    if (pimloft().isRunning()) {
        pimloft().signal(SIGTERM);
        EXPECT_EQ(pimloft().waitForEnd(), 0);
    }
    EXPECT_TRUE(waitUntil([this] { return hands().keysDownOnXTest().isEmpty(); })) << "a key is stuck";
}

void KeyStoryTest::storeSettings(const std::vector<Step> &steps) {
    QJsonObject preferences;
    QJsonArray mappings;
    for (const Step &step : steps) {
        if (step.verb == QLatin1String("preset"))
            preferences[QStringLiteral("pimloft.keymapper.preset.") + step.rest] = true;
        else if (step.verb == QLatin1String("rule"))
            mappings << mappingOf(ruleOfText(step.rest));
    }
    skipFirstRun(session(), preferences);
    write(session().home() + QStringLiteral("/data/Pimloft/key_mappings.json"), QJsonDocument(mappings));
}

void KeyStoryTest::launch() {
    startPimloft();
    letPimloftCatchUp();
}

void KeyStoryTest::bringToFront(const QString &identifier) {
    auto &window = sinks_[identifier];
    if (!window)
        window = std::make_unique<KeySink>(QRect(50, 50, 300, 200), windowClasses.at(identifier));
    window->activate();
    window->typed();
    front_ = identifier;
    letPimloftCatchUp();
}

void KeyStoryTest::perform(const Step &step) {
    if (step.verb == QLatin1String("press")) {
        const KeyChord chord = chordOfText(step.rest);
        std::vector<int> modifiers;
        for (const ModifierKey &modifier : modifierKeys(chord.flags))
            modifiers.push_back(*kernelKey(modifier.key));
        for (const int key : modifiers)
            hands().press(key);
        hands().tap(*kernelKey(chord.key));
        for (auto key = modifiers.rbegin(); key != modifiers.rend(); ++key)
            hands().release(*key);
    } else if (step.verb == QLatin1String("down")) {
        hands().press(*kernelKey(keyOfName(step.rest)));
    } else if (step.verb == QLatin1String("up")) {
        hands().release(*kernelKey(keyOfName(step.rest)));
    } else if (step.verb == QLatin1String("front")) {
        bringToFront(step.rest);
    } else if (step.verb == QLatin1String("wait")) {
        QTest::qWait(step.rest.toInt());
    } else if (step.verb == QLatin1String("launch")) {
        launch();
    } else {
        pimloft().signal(step.verb == QLatin1String("crash") ? SIGKILL : SIGTERM);
        pimloft().waitForEnd();
        // After a crash the guard lets go of what was pressed for the user, before the next key comes.
        EXPECT_TRUE(waitUntil([this] { return hands().keysDownOnXTest().isEmpty(); })) << "a key is stuck";
    }
}

void KeyStoryTest::expectTyped(const Step &step) {
    QStringList expected;
    for (const QString &line : step.followed) {
        if (line.startsWith(QLatin1String("alert ")))
            closeAlert();
        else if (!line.startsWith(QLatin1String("released ")) && !modifierKey(line))
            expected << textOfChord(asOnDesktop(chordOfText(line), chordOfText(step.rest).key));
    }
    const auto arrived = [&] {
        typed_ << sink().typed().split(QStringLiteral(", "), Qt::SkipEmptyParts);
        return typed_.size() >= expected.size();
    };
    EXPECT_TRUE(waitUntil(arrived)) << "the key does not arrive";
    QStringList texts;
    for (const QString &typed : std::exchange(typed_, {}))
        texts << textOfTyped(typed);
    EXPECT_EQ(texts.join(u' ').toStdString(), expected.join(u' ').toStdString());
}

void KeyStoryTest::closeAlert() {
    const QString name = QStringLiteral("pimloft");
    ASSERT_TRUE(waitUntil([&] { return !desktop().windowsOf(name).empty(); })) << "no alert comes";
    picture(QStringLiteral("keymapper-panic"));
    desktop().close(desktop().windowsOf(name).front());
    EXPECT_TRUE(waitUntil([&] { return desktop().windowsOf(name).empty(); }));
    sink().activate();
}

}  // namespace pimloft::test
