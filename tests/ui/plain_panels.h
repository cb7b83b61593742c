// SPDX-License-Identifier: MIT
#pragma once

#include "platform/panels/panels.h"

#include <QWindow>

namespace pimloft::test {

/// Panels that are ordinary windows of the Qt platform that the test runs on: enough to see what is in them.
/// `height` is that of the primary display.
class PlainPanels final : public PanelService {
public:
    explicit PlainPanels(double height) : height_(height) {}

    class Window final : public Panel {
    public:
        Window(std::unique_ptr<QWindow> content, double height)
            : content_(std::move(content)), height_(height) {
            content_->setFlags(Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint);
        }
        bool show(const QRectF &frame) override {
            setFrame(frame);
            content_->show();
            content_->requestActivate();
            return true;
        }
        void setFrame(const QRectF &frame) override {
            content_->setGeometry(
                QRectF(frame.x(), height_ - frame.y() - frame.height(), frame.width(), frame.height())
                    .toRect());
        }
        void setOpacity(double) override {}
        void releaseTyping() override {}
        void orderOut() override { content_->hide(); }

    private:
        std::unique_ptr<QWindow> content_;
        double height_;
    };

    std::unique_ptr<Panel> create(PanelKind, std::unique_ptr<QWindow> content) override {
        return std::make_unique<Window>(std::move(content), height_);
    }
    bool blends() const override { return blending; }
    bool reducesMotion() const override { return !fading; }

    bool blending = false;
    bool fading = true;

private:
    double height_;
};

}  // namespace pimloft::test
