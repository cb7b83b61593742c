// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QRect>
#include <QString>
#include <QStringList>

#include <xcb/xcb.h>

#include <memory>
#include <optional>
#include <vector>

namespace pimloft::test {

/// What a person sees on an X display, found out apart from the product's code. One thread; native pixels
/// from the root's top-left corner.
class XDesktop {
public:
    /// A connection of its own to `display`; ends the test run when there is none.
    explicit XDesktop(const QString &display);
    ~XDesktop();
    XDesktop(const XDesktop &) = delete;
    XDesktop &operator=(const XDesktop &) = delete;

    QRect screen() const;

    /// The windows that the window manager manages, and the one of that title.
    std::vector<xcb_window_t> windows() const;
    std::vector<xcb_window_t> windowsOf(const QString &windowClass) const;
    std::optional<xcb_window_t> window(const QString &title) const;
    QString title(xcb_window_t window) const;
    /// _NET_WM_STATE without its prefix: "FULLSCREEN", "MAXIMIZED_VERT"...
    QStringList states(xcb_window_t window) const;
    xcb_window_t activeWindow() const;

    /// With its title bar, without its shadow. An empty rectangle for a window that is gone.
    QRect visibleFrame(xcb_window_t window) const;
    /// By how much a window's size may differ from a multiple; 1x1 where it takes every size.
    QSize sizeIncrement(xcb_window_t window) const;
    /// Where a person takes hold of a window to move it.
    QPoint titleBar(xcb_window_t window) const;

    /// As a task bar asks for it.
    void activate(xcb_window_t window);
    void close(xcb_window_t window);
    void setState(xcb_window_t window, const char *state, bool on);
    /// Places the visible frame.
    void place(xcb_window_t window, const QRect &frame);

    /// Windows on screen that no window manager manages, of programs of this class.
    std::vector<QRect> unmanagedWindows(const QString &windowClass) const;

    /// Whether nobody holds the pointer, as a window manager does until it has finished a move.
    bool isPointerFree() const;

    /// Takes the whole keyboard for this connection, as an open menu does, and gives it back.
    void holdKeyboard();
    void releaseKeyboard();

    /// Whether windows are blended with what is below them.
    bool hasCompositor() const;

    /// Whether some other program has this combination. Takes it for no moment that anybody could notice.
    bool isKeyTaken(int key, std::uint16_t modifiers) const;
    /// Keeps a combination for this connection, as another program with that hotkey does.
    void takeKey(int key, std::uint16_t modifiers);

    /// A panel along an edge of the root, `thickness` pixels wide between `from` and `to` on that edge.
    enum class Edge { left, right, top, bottom };
    xcb_window_t openDock(Edge edge, int thickness, int from, int to);

    QImage screenshot() const { return picture(screen()); }
    QRgb pixel(QPoint at) const { return picture({at, QSize(1, 1)}).pixel(0, 0); }

private:
    struct Property {
        xcb_atom_t type;
        std::vector<std::uint8_t> bytes;
        std::vector<std::uint32_t> values() const;
    };
    QImage picture(const QRect &area) const;
    bool isOf(xcb_window_t window, const QString &windowClass) const;
    xcb_atom_t atom(const QByteArray &name) const;
    Property property(xcb_window_t window, const char *name) const;
    std::vector<std::uint32_t> extents(xcb_window_t window, const char *name) const;
    bool grab(int key, std::uint16_t modifiers) const;
    void send(xcb_window_t window, const char *type, const std::vector<std::uint32_t> &data);

    xcb_connection_t *connection_;
    xcb_screen_t *screen_;
};

}  // namespace pimloft::test
