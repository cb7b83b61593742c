// SPDX-License-Identifier: MIT
#include "platform/panels/fake_panels.h"

#include <QWindow>

#include <gtest/gtest.h>

namespace pimloft {

namespace {

QString name(PanelKind kind) {
    return kind == PanelKind::overlay ? QStringLiteral("overlay") : QStringLiteral("popup");
}

}  // namespace

FakePanels::Window::Window(FakePanels &service, PanelKind kind, std::unique_ptr<QWindow> content)
    : service_(service), kind_(kind), content_(std::move(content)) {
    service_.existing_.push_back(this);
}

FakePanels::Window::~Window() {
    orderOut();
    std::erase(service_.existing_, this);
}

bool FakePanels::Window::show(const QRectF &frame) {
    EXPECT_FALSE(shown_) << "a panel shown twice";
    if (kind_ == PanelKind::popup && service_.keyboardIsTaken)
        return false;
    frame_ = frame;
    shown_ = true;
    typing_ = kind_ == PanelKind::popup;
    service_.log_.line(QStringLiteral("show %1 at %2").arg(name(kind_), describe(frame)));
    return true;
}

void FakePanels::Window::setFrame(const QRectF &frame) {
    EXPECT_TRUE(shown_) << "a panel moved that is not on screen";
    frame_ = frame;
}

void FakePanels::Window::setOpacity(double opacity) {
    EXPECT_TRUE(opacity >= 0 && opacity <= 1) << "opacity " << opacity;
    opacity_ = opacity;
}

void FakePanels::Window::releaseTyping() {
    if (!std::exchange(typing_, false))
        return;
    service_.log_.line(QStringLiteral("give the keyboard back"));
}

void FakePanels::Window::orderOut() {
    releaseTyping();
    if (!std::exchange(shown_, false))
        return;
    service_.log_.line(QStringLiteral("order out %1").arg(name(kind_)));
}

void FakePanels::Window::dismiss(Dismissal reason) {
    EXPECT_TRUE(shown_) << "a panel dismissed that is not on screen";
    EXPECT_EQ(kind_, PanelKind::popup) << "overlays never ask to go";
    if (onDismiss)
        onDismiss(reason);
}

FakePanels::~FakePanels() {
    EXPECT_TRUE(existing_.empty()) << existing_.size() << " panels outlive the desktop";
}

std::unique_ptr<Panel> FakePanels::create(PanelKind kind, std::unique_ptr<QWindow> content) {
    EXPECT_TRUE(content) << "a panel without content";
    EXPECT_FALSE(content && content->handle()) << "content that has a native window already";
    return std::make_unique<Window>(*this, kind, std::move(content));
}

}  // namespace pimloft
