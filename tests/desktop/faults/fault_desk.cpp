// SPDX-License-Identifier: MIT
#include "desktop/faults/fault_desk.h"

#include "desktop/support/first_run.h"
#include "process_figures.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <csignal>

namespace pimloft::test {

void FaultDesk::SetUp() {
    openDesktop(QStringLiteral("openbox"));
    skipFirstRun(session(), {{QStringLiteral("pimloft.clipboardplus.maxItems"), 100'000}});
    writeRule();
}

void FaultDesk::writeRule() {
    constexpr int c = 8;
    const QJsonObject rule{{QStringLiteral("id"), QStringLiteral("8F0E7A52-6A0C-4C4E-9C39-2B6B6B1F2B11")},
                           {QStringLiteral("fromKeyCode"), c},
                           {QStringLiteral("fromModifiersRaw"), 0x40000},
                           {QStringLiteral("toKeyCode"), c},
                           {QStringLiteral("toModifiersRaw"), 0x100000},
                           {QStringLiteral("excludedApps"), QJsonArray()}};
    QDir().mkpath(dataFolder());
    QFile file(dataFolder() + QStringLiteral("/key_mappings.json"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QJsonDocument(QJsonArray{rule}).toJson());
}

void FaultDesk::TearDown() {
    ClipboardDesk::TearDown();
    sink_.reset();
}

void FaultDesk::startEverything(const Variables &variables) {
    startPimloft(variables);
    EXPECT_TRUE(waitUntil([this] { return desktop().isKeyTaken(KEY_V, XCB_MOD_MASK_4); }));
    // The guard is there before the keyboard is taken.
    EXPECT_TRUE(waitUntil([this] { return guard() != 0 && hands().isKeyboardTaken(); }))
        << "keys are not remapped";
}

pid_t FaultDesk::guard() {
    const std::vector<pid_t> children = bench::childrenOf(pimloft().pid());
    return children.empty() ? 0 : children.front();
}

void FaultDesk::expectThatNothingIsLeftOf(pid_t guardBefore) {
    EXPECT_TRUE(waitUntil([&] { return kill(guardBefore, 0) != 0; })) << "its guard is still there";
    EXPECT_TRUE(waitUntil([this] {
        return hands().keysDown().isEmpty() && hands().keysDownOnXTest().isEmpty();
    })) << "a key is stuck";
    EXPECT_FALSE(snaps()) << "it still has its shortcuts";
}

KeySink &FaultDesk::sink() {
    if (!sink_)
        sink_ = std::make_unique<KeySink>(QRect(900, 600, 300, 200));
    return *sink_;
}

void FaultDesk::expectLiveKeyboard() {
    if (!sink().isActive())
        sink().activate();
    sink().typed();
    QString typed;
    EXPECT_TRUE(waitUntil([&] {
        hands().tap(KEY_F9);
        return waitUntil([&] { return (typed += sink().typed()).endsWith(QLatin1String("FK09")); }, 500);
    })) << "the keyboard is dead: "
        << typed.toStdString();
    EXPECT_TRUE(waitUntil([this] {
        return hands().keysDown().isEmpty() && hands().keysDownOnXTest().isEmpty();
    })) << "a key is stuck";
}

void FaultDesk::expectRemapping() {
    expectLiveKeyboard();
    sink().typed();
    hands().chord({KEY_LEFTCTRL, KEY_C});
    QString typed;
    EXPECT_TRUE(waitUntil([&] { return (typed += sink().typed()).contains(QLatin1String("Super AB03")); }))
        << "what arrives is " << typed.toStdString();
}

void FaultDesk::openPanel() {
    EXPECT_EQ(launch(session(), {}).exitCode, 0);
    EXPECT_TRUE(waitUntil([this] { return panelFrame().has_value(); }));
}

void FaultDesk::expectThatPanelsOpenAndClose() {
    openPopup();
    hands().tap(KEY_ESC);
    EXPECT_TRUE(waitUntil([this] { return !isPopupOpen(); }));
    openPanel();
    hands().tap(KEY_ESC);
    EXPECT_TRUE(waitUntil([this] { return !panelFrame(); }));
}

QStringList FaultDesk::dataFiles() {
    return QDir(dataFolder()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

}  // namespace pimloft::test
