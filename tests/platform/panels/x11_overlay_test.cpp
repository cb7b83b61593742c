// SPDX-License-Identifier: MIT
#include "panel_desktop.h"

namespace pimloft {
namespace {

using namespace test;

struct OverlayTest : PanelDesktop {
    std::unique_ptr<Panel> overlay = make(PanelKind::overlay);
};

TEST_F(OverlayTest, standsExactlyWhereItIsPut) {
    for (const QRect native : {QRect(101, 57, 333, 221), QRect(0, 0, 800, 1000), QRect(1599, 999, 1, 1)}) {
        EXPECT_TRUE(overlay->show(desktop(native)));
        EXPECT_EQ(nativeFrame(*overlay), native);
        EXPECT_TRUE(isMapped(*overlay));
        overlay->orderOut();
        EXPECT_TRUE(waitUntil([&] { return !isMapped(*overlay); }));
    }
}

TEST_F(OverlayTest, aFrameInBetweenPixelsTouchesItsNeighbour) {
    EXPECT_TRUE(overlay->show(QRectF(0, 0, 533.4, 400)));
    EXPECT_EQ(nativeFrame(*overlay).right() + 1, qRound(533.4 * scale()));
    overlay->setFrame(QRectF(533.4, 0, 533.3, 400));
    session.roundTrip();
    EXPECT_TRUE(waitUntil([&] { return nativeFrame(*overlay).left() == qRound(533.4 * scale()); }));
}

TEST_F(OverlayTest, moves) {
    EXPECT_TRUE(overlay->show(desktop({100, 100, 400, 300})));
    overlay->setFrame(desktop({301, 203, 405, 307}));
    EXPECT_TRUE(waitUntil([&] { return nativeFrame(*overlay) == QRect(301, 203, 405, 307); }));
}

TEST_F(OverlayTest, clicksPassThrough) {
    EXPECT_TRUE(overlay->show(desktop({50, 50, 300, 200})));
    EXPECT_TRUE(waitUntil([&] { return content->isExposed(); }));
    EXPECT_EQ(shape(*overlay, XCB_SHAPE_SK_INPUT), QString());
    // The inside, which has no picture, and the edge, which has one.
    hands.click({200, 150});
    EXPECT_TRUE(waitUntil([&] { return sink.clicks() == 1; }));
    hands.click({200, 248});
    EXPECT_TRUE(waitUntil([&] { return sink.clicks() == 2; }));
    EXPECT_EQ(content->clicks, 0);
}

TEST_F(OverlayTest, neverTakesTheKeyboard) {
    EXPECT_TRUE(overlay->show(desktop({50, 50, 300, 200})));
    EXPECT_TRUE(waitUntil([&] { return content->isExposed(); }));
    hands.type("q");
    EXPECT_TRUE(waitUntil([&] { return sink.typed() == QStringLiteral("AD01"); }));
}

TEST_F(OverlayTest, withoutACompositorOnlyItsOutlineIsThere) {
    ASSERT_FALSE(panels.blends());
    EXPECT_TRUE(overlay->show(desktop({100, 100, 400, 300})));
    const int edge = int(4 * scale());
    EXPECT_EQ(shape(*overlay), QStringLiteral("400x%1+0+0 %1x%2+0+%1 %1x%2+%3+%1 400x%1+0+%4")
                                   .arg(edge)
                                   .arg(300 - 2 * edge)
                                   .arg(400 - edge)
                                   .arg(300 - edge));
    overlay->setFrame(desktop({100, 100, 200, 100}));
    const QString smaller = QStringLiteral("200x%1+0+0 %1x%2+0+%1 %1x%2+%3+%1 200x%1+0+%4")
                                .arg(edge)
                                .arg(100 - 2 * edge)
                                .arg(200 - edge)
                                .arg(100 - edge);
    EXPECT_TRUE(waitUntil([&] { return shape(*overlay) == smaller; }));
}

TEST_F(OverlayTest, withoutACompositorOpacityIsAllOrNothing) {
    overlay->setOpacity(0);
    EXPECT_TRUE(overlay->show(desktop({100, 100, 400, 300})));
    EXPECT_EQ(shape(*overlay), QString());
    overlay->setOpacity(0.1);
    EXPECT_TRUE(waitUntil([&] { return !shape(*overlay).isEmpty(); }));
    EXPECT_TRUE(waitUntil([&] { return content->isExposed(); }));
    EXPECT_TRUE(waitUntil([&] { return pixel(id(*overlay), {1, 1}) == 0x80000080; }));
    overlay->setOpacity(0);
    EXPECT_TRUE(waitUntil([&] { return shape(*overlay).isEmpty(); }));
}

TEST_F(OverlayTest, aCompositorThatComesAndGoesIsFollowed) {
    EXPECT_TRUE(overlay->show(desktop({100, 100, 400, 300})));
    const QString outline = shape(*overlay);
    auto picom = startCompositor();
    EXPECT_TRUE(waitUntil([&] { return shape(*overlay) == QStringLiteral("400x300+0+0"); }));
    picom.reset();
    EXPECT_TRUE(waitUntil([&] { return !panels.blends() && shape(*overlay) == outline; }));
}

TEST_F(OverlayTest, aCompositorBlendsItWithWhatIsBelow) {
    const auto picom = startCompositor();
    overlay->setOpacity(0.5);
    // Over the grey window, clear of its edges.
    EXPECT_TRUE(overlay->show(desktop({100, 100, 200, 100})));
    EXPECT_EQ(shape(*overlay), QStringLiteral("200x100+0+0"));
    const auto opacity = session.property32(id(*overlay), session.atom("_NET_WM_WINDOW_OPACITY"));
    ASSERT_EQ(opacity.size(), 1u);
    EXPECT_NEAR(opacity.front(), 0xffffffffu * 0.5, 2);
    // Grey 0x80, a quarter of blue upon it.
    QRgb seen = 0;
    EXPECT_TRUE(waitUntil([&] {
        seen = pixel(session.root(), {200, 150});
        return qAbs(qRed(seen) - 0x60) <= 3 && qAbs(qBlue(seen) - 0xa0) <= 3;
    })) << std::hex
        << seen;
}

TEST_F(OverlayTest, floatsAboveWindowsThatAreRaisedAndBelowThePopup) {
    EXPECT_TRUE(overlay->show(desktop({100, 100, 400, 300})));
    sink.activate();
    overlay->setFrame(desktop({100, 100, 400, 301}));
    EXPECT_TRUE(waitUntil([&] { return stack().back() == id(*overlay); }));
    auto popup = make(PanelKind::popup);
    EXPECT_TRUE(popup->show(desktop({150, 150, 400, 300})));
    EXPECT_TRUE(isAbove(id(*popup), id(*overlay)));
    overlay->setFrame(desktop({100, 100, 400, 302}));
    EXPECT_TRUE(waitUntil([&] { return nativeFrame(*overlay).height() == 302; }));
    EXPECT_TRUE(isAbove(id(*popup), id(*overlay)));
    popup->orderOut();
}

TEST_F(OverlayTest, isOffTheScreenWhenItIsDestroyed) {
    EXPECT_TRUE(overlay->show(desktop({100, 100, 400, 300})));
    const xcb_window_t window = id(*overlay);
    overlay.reset();
    EXPECT_TRUE(waitUntil([&] { return !session.isMapped(window); }));
}

TEST_F(OverlayTest, itsPictureReachesItsLastPixel) {
    const auto picom = startCompositor();
    for (const QSize size : {QSize(401, 301), QSize(800, 555), QSize(333, 222)}) {
        EXPECT_TRUE(overlay->show(desktop({QPoint(33, 77), size})));
        EXPECT_TRUE(waitUntil([&] {
            return pixel(id(*overlay), {size.width() - 1, size.height() - 1}) == 0x80000080;
        })) << size.width();
        overlay->orderOut();
    }
}

TEST_F(OverlayTest, keepsUpWithAGlide) {
    EXPECT_TRUE(overlay->show(desktop({0, 0, 400, 300})));
    EXPECT_TRUE(waitUntil([&] { return content->isExposed(); }));
    for (int frame = 1; frame <= 9; ++frame) {
        const QRect native(frame * 10, frame * 7, 400 + frame * 40, 300 + frame * 30);
        overlay->setFrame(desktop(native));
        EXPECT_TRUE(waitUntil([&] {
            return nativeFrame(*overlay) == native && content->width() == qRound(native.width() / scale());
        }));
    }
}

}  // namespace
}  // namespace pimloft
