// SPDX-License-Identifier: MIT
#pragma once

#include "platform/panels/x11_panel.h"
#include "platform/x11/key_devices.h"
#include "platform/x11/x11_raw_input.h"

#include <QAbstractNativeEventFilter>
#include <QTimer>

namespace pimloft {

/// A panel that is typed into while another program's window stays the active one: it holds the keyboard by a
/// grab. Main thread.
class X11Popup final : public X11Panel, private QAbstractNativeEventFilter {
public:
    X11Popup(X11Panels &panels, std::unique_ptr<QWindow> content);
    ~X11Popup() override;

    bool show(const QRectF &frame) override;
    void releaseTyping() override;
    void orderOut() override;
    PanelKind kind() const override { return PanelKind::popup; }

    /// Something else than its owner ends its typing.
    void loseTyping(Dismissal reason);

private:
    void applyShape() override;
    bool takeKeyboard();
    void endWatches();
    void dismiss(Dismissal reason);
    void handlePress(const X11RawInput::Event &press);
    bool isOurs(xcb_window_t toplevel);
    bool takePress(const xcb_key_press_event_t &key);
    bool takeRelease(const xcb_key_release_event_t &key);
    void settleRelease(bool isRepeat);
    bool nativeEventFilter(const QByteArray &type, void *message, qintptr *result) override;
    bool eventFilter(QObject *content, QEvent *event) override;

    std::unique_ptr<X11RawInput::Watch> presses_;
    QTimer idle_;
    xcb_window_t activeWindow_ = XCB_NONE;  ///< when it was shown
    std::uint32_t grabbed_ = 0;             ///< the number of a request after the grab's
    KeySet hotkeys_;                        ///< keys that are down as hotkeys, as far as its events tell
    xcb_key_release_event_t released_{};    ///< the last release of such a key, if no key event followed yet
    std::uint32_t shown_ = 0;               ///< earlier events are not about what is shown now
    bool typing_ = false;
    bool takesClicks_ = true;
    bool isCut_ = false;
    bool dismissed_ = false;
    unsigned shows_ = 0;
};

}  // namespace pimloft
