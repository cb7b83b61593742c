// SPDX-License-Identifier: MIT
#include "support/desktop_session.h"
#include "support/physical_input.h"
#include "support/qt_printers.h"

#include <QLineEdit>

#include <gtest/gtest.h>

using namespace pimloft::test;

namespace {

/// A text field that the server sends the keys to, without a window manager.
struct Field {
    QLineEdit edit;

    Field() {
        edit.setGeometry(100, 100, 300, 40);
        edit.show();
        edit.activateWindow();
        EXPECT_TRUE(waitUntil([this] { return edit.hasFocus(); }));
    }
};

}  // namespace

TEST(PhysicalInput, typesWhatIsPrintedOnAUsKeyboard) {
    Field field;
    PhysicalInput hands;
    hands.type("aZ09 -_;:'\"`~\\|,<.>/?[{]}=+!@#");
    const QString typed = QStringLiteral("aZ09 -_;:'\"`~\\|,<.>/?[{]}=+!@#");
    EXPECT_TRUE(waitUntil([&] { return field.edit.text() == typed; })) << qPrintable(field.edit.text());
}

TEST(PhysicalInput, keysAreDownAsTheProgramsSeeItButNotOnTheXTestDevice) {
    PhysicalInput hands;
    hands.press(KEY_LEFTSHIFT);
    EXPECT_EQ(hands.keysDown(), QSet<int>{KEY_LEFTSHIFT});
    EXPECT_EQ(hands.keysDownOnXTest(), QSet<int>{});
    hands.release(KEY_LEFTSHIFT);
    EXPECT_EQ(hands.keysDown(), QSet<int>{});
}

TEST(PhysicalInput, whatIsHeldIsLetGoWithTheHands) {
    PhysicalInput watcher;
    {
        PhysicalInput hands;
        hands.press(KEY_LEFTCTRL);
        hands.press(KEY_V);
    }
    EXPECT_EQ(watcher.keysDown(), QSet<int>{});
}

TEST(PhysicalInput, theMouseGoesWhereItIsMoved) {
    PhysicalInput hands;
    hands.moveTo({300, 200});
    EXPECT_EQ(hands.position(), QPoint(300, 200));
    hands.glideTo({700, 500}, 20);
    EXPECT_EQ(hands.position(), QPoint(700, 500));
}

TEST(PhysicalInput, aClickReachesTheWindowUnderThePointer) {
    Field field;
    field.edit.setText(QStringLiteral("one two"));
    PhysicalInput hands;
    hands.doubleClick({112, 120});
    EXPECT_TRUE(waitUntil([&] { return field.edit.selectedText() == QStringLiteral("one"); }));
}
