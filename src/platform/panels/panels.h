// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>

#include <functional>
#include <memory>

class QWindow;

namespace pimloft {

/// What a panel is for; fixed when it is created.
enum class PanelKind {
    overlay,  ///< clicks pass through; floats above normal windows
    popup,    ///< takes typing without becoming the active window; above everything, on all workspaces
};

/// Why a popup should go. The panel only reports; its owner decides.
enum class Dismissal { outsideClick, otherWindowActivated, screenLocks, idle, typingLost };

/// One floating window of ours that never becomes the active one. Main thread.
///
/// Frames are in desktop points: origin at the bottom-left corner of the primary display, y growing upwards.
/// Destroying a panel takes it off the screen and gives the keyboard back.
class Panel {
public:
    virtual ~Panel() = default;

    /// False: typing cannot be had (another program holds the keyboard); then nothing is on screen.
    [[nodiscard]] virtual bool show(const QRectF &frame) = 0;
    virtual void setFrame(const QRectF &frame) = 0;

    /// 0 to 1. Where the desktop cannot blend windows anything above 0 is opaque.
    virtual void setOpacity(double opacity) = 0;

    /// On return the next posted key reaches the program in front. The panel may still fade; it takes no
    /// input. Idempotent.
    virtual void releaseTyping() = 0;
    virtual void orderOut() = 0;

    /// Main thread, queued, once per show; idle = 60 s without input. Overlays never report.
    std::function<void(Dismissal)> onDismiss;
};

/// Makes panels. Main thread.
class PanelService {
public:
    virtual ~PanelService() = default;

    /// `content` has no native window yet: what a kind is, is fixed at creation.
    virtual std::unique_ptr<Panel> create(PanelKind kind, std::unique_ptr<QWindow> content) = 0;

    /// Whether the desktop blends windows. Where it does not, an overlay shows only its outermost
    /// `outlineWidth` points, so that what is under it stays visible; its content then paints them opaque.
    virtual bool blends() const = 0;
    static constexpr double outlineWidth = 4;

    /// Whether the user wants panels to come, go and change places in one step.
    virtual bool reducesMotion() const = 0;
};

}  // namespace pimloft
