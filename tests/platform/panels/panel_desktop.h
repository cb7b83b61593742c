// SPDX-License-Identifier: MIT
#pragma once

#include "platform/appearance/fake_appearance.h"
#include "platform/panels/x11_panel.h"
#include "platform/panels/x11_panels.h"
#include "support/desktop_session.h"
#include "support/key_sink.h"
#include "support/physical_input.h"
#include "support/qt_printers.h"

#include <QKeyEvent>
#include <QPainter>
#include <QRasterWindow>

#include <gtest/gtest.h>

#include <xcb/shape.h>

namespace pimloft::test {

/// What a panel shows in these tests: one colour, and what is typed into it.
class Content : public QRasterWindow {
public:
    explicit Content(QColor colour = QColor(0, 0, 255, 128)) : colour_(colour) {}

    QString text;
    int clicks = 0;

protected:
    void paintEvent(QPaintEvent *) override {
        QPainter painter(this);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(QRect(QPoint(), size()), colour_);
    }
    void keyPressEvent(QKeyEvent *event) override { text += event->text(); }
    void mousePressEvent(QMouseEvent *) override { ++clicks; }

private:
    QColor colour_;
};

/// The panels of the test's desktop, and what the server says of them.
struct PanelDesktop : testing::Test {
    X11Session session;
    X11RawInput input{session};
    X11Displays displays{session, scale()};
    X11Keyboard keyboard{session, input};
    X11Hotkeys hotkeys{session, keyboard, input};
    X11ActiveWindow activeWindow{session};
    X11Compositor compositor{session};
    FakeAppearance appearance;
    X11Panels panels{{displays, keyboard, hotkeys, input, activeWindow, compositor, appearance}};
    KeySink sink;
    PhysicalInput hands;
    Content *content = nullptr;

    static double scale() {
        const double scale = qEnvironmentVariable("QT_SCALE_FACTOR").toDouble();
        return scale > 0 ? scale : 1;
    }

    std::unique_ptr<Panel> make(PanelKind kind) { return make(kind, panels); }
    std::unique_ptr<Panel> make(PanelKind kind, X11Panels &service) {
        auto window = std::make_unique<Content>();
        content = window.get();
        return service.create(kind, std::move(window));
    }

    /// The desktop frame of a rectangle of native pixels.
    QRectF desktop(const QRect &native) { return displays.pointSpace().toDesktop(native); }

    static xcb_window_t id(const Panel &panel) { return dynamic_cast<const X11Panel &>(panel).id(); }

    bool isMapped(const Panel &panel) { return session.isMapped(id(panel)); }

    QRect nativeFrame(const Panel &panel) {
        const XcbReply<xcb_get_geometry_reply_t> reply(xcb_get_geometry_reply(
            session.connection(), xcb_get_geometry(session.connection(), id(panel)), nullptr));
        return reply ? QRect(reply->x, reply->y, reply->width, reply->height) : QRect();
    }

    /// What is left of the window by its shape, as rectangles of its own pixels.
    QString shape(const Panel &panel, xcb_shape_sk_t kind = XCB_SHAPE_SK_BOUNDING) {
        const XcbReply<xcb_shape_get_rectangles_reply_t> reply(xcb_shape_get_rectangles_reply(
            session.connection(), xcb_shape_get_rectangles(session.connection(), id(panel), kind), nullptr));
        if (!reply)
            return QStringLiteral("no window");
        QStringList rectangles;
        const xcb_rectangle_t *first = xcb_shape_get_rectangles_rectangles(reply.get());
        for (int i = 0; i < xcb_shape_get_rectangles_rectangles_length(reply.get()); ++i)
            rectangles << QStringLiteral("%1x%2+%3+%4")
                              .arg(first[i].width)
                              .arg(first[i].height)
                              .arg(first[i].x)
                              .arg(first[i].y);
        return rectangles.join(QLatin1Char(' '));
    }

    /// A pixel of a window as the window has it.
    QRgb pixel(xcb_window_t window, QPoint at) {
        const XcbReply<xcb_get_image_reply_t> reply(
            xcb_get_image_reply(session.connection(),
                                xcb_get_image(session.connection(), XCB_IMAGE_FORMAT_Z_PIXMAP, window,
                                              std::int16_t(at.x()), std::int16_t(at.y()), 1, 1, ~0u),
                                nullptr));
        return reply ? *reinterpret_cast<const QRgb *>(xcb_get_image_data(reply.get())) : 0;
    }

    /// The windows of the root from below.
    std::vector<xcb_window_t> stack() {
        const XcbReply<xcb_query_tree_reply_t> reply(xcb_query_tree_reply(
            session.connection(), xcb_query_tree(session.connection(), session.root()), nullptr));
        const xcb_window_t *first = xcb_query_tree_children(reply.get());
        return {first, first + xcb_query_tree_children_length(reply.get())};
    }
    bool isAbove(xcb_window_t upper, xcb_window_t lower) {
        const auto windows = stack();
        return std::find(windows.begin(), windows.end(), upper) >
               std::find(windows.begin(), windows.end(), lower);
    }

    struct End {
        void operator()(QProcess *process) const {
            process->kill();
            process->waitForFinished();
            delete process;
        }
    };
    /// Runs a compositor until the returned object is destroyed.
    std::unique_ptr<QProcess, End> startCompositor() {
        auto process = currentSession().start(QStringLiteral("picom"),
                                              {QStringLiteral("--backend"), QStringLiteral("xrender"),
                                               QStringLiteral("--config"), QStringLiteral("/dev/null")});
        EXPECT_TRUE(waitUntil([&] { return panels.blends(); }));
        return std::unique_ptr<QProcess, End>(process.release());
    }

    /// Lets everything that was done so far arrive.
    void settle() {
        session.roundTrip();
        bool turned = false;
        QMetaObject::invokeMethod(
            &session, [&] { turned = true; }, Qt::QueuedConnection);
        EXPECT_TRUE(waitUntil([&] { return turned; }));
    }
};

}  // namespace pimloft::test
