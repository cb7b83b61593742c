// SPDX-License-Identifier: MIT
#pragma once

#include "platform/fake_log.h"
#include "platform/panels/panels.h"

#include <vector>

namespace pimloft {

/// Panels that exist only as their frame and opacity. Moves and fades are state, not lines of the log, since
/// an animation makes many of them.
class FakePanels final : public PanelService {
public:
    class Window final : public Panel {
    public:
        Window(FakePanels &service, PanelKind kind, std::unique_ptr<QWindow> content);
        ~Window() override;

        bool show(const QRectF &frame) override;
        void setFrame(const QRectF &frame) override;
        void setOpacity(double opacity) override;
        void releaseTyping() override;
        void orderOut() override;

        PanelKind kind() const { return kind_; }
        QRectF frame() const { return frame_; }
        double opacity() const { return opacity_; }
        bool isShown() const { return shown_; }
        bool isTyping() const { return typing_; }
        /// The desktop asks the panel to go.
        void dismiss(Dismissal reason);

    private:
        FakePanels &service_;
        PanelKind kind_;
        std::unique_ptr<QWindow> content_;
        QRectF frame_;
        double opacity_ = 1;
        bool shown_ = false;
        bool typing_ = false;
    };

    explicit FakePanels(FakeLog &log) : log_(log) {}
    ~FakePanels() override;

    std::unique_ptr<Panel> create(PanelKind kind, std::unique_ptr<QWindow> content) override;
    bool blends() const override { return blending; }
    bool reducesMotion() const override { return motionIsReduced; }

    /// The panels that exist, oldest first.
    const std::vector<Window *> &existing() const { return existing_; }

    bool blending = true;
    bool motionIsReduced = false;
    bool keyboardIsTaken = false;  ///< another program holds the keyboard

private:
    FakeLog &log_;
    std::vector<Window *> existing_;
};

}  // namespace pimloft
