// SPDX-License-Identifier: MIT
#include "platform/panels/mac_popup.h"

#include "platform/panels/mac_panels.h"

#include <QEvent>

#include <utility>

namespace pimloft {

namespace {

bool isInput(QEvent::Type type) {
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::Wheel:
        return true;
    default:
        return false;
    }
}

}  // namespace

MacPopup::Watches::Watches(MacPopup &popup)
    : clicks([&popup] { popup.dismiss(Dismissal::outsideClick); }),
      activations(MacNotice::Kind::applicationActivated,
                  [&popup] { popup.dismiss(Dismissal::otherWindowActivated); }),
      sessions(MacNotice::Kind::sessionLeft, [&popup] { popup.dismiss(Dismissal::screenLocks); }),
      sleeps(MacNotice::Kind::screensSlept, [&popup] { popup.dismiss(Dismissal::screenLocks); }) {
}

MacPopup::MacPopup(MacPanels &panels, std::unique_ptr<QWindow> content, std::uintptr_t view)
    : MacPanel(PanelKind::popup, std::move(content), view), panels_(panels) {
    idle_.setSingleShot(true);
    idle_.setInterval(panels.idle_);
    idle_.callOnTimeout(this, [this] { dismiss(Dismissal::idle); });
    this->content().installEventFilter(this);
}

MacPopup::~MacPopup() {
    orderOut();
}

bool MacPopup::show(const QRectF &frame) {
    if (panels_.typing_ && panels_.typing_ != this)
        panels_.typing_->handleLostTyping();
    ++shows_;
    dismissed_ = false;
    open(frame);
    panels_.typing_ = this;
    typing_ = true;
    window().takeTyping();
    watches_.emplace(*this);
    idle_.start();
    return true;
}

void MacPopup::releaseTyping() {
    if (!typing_)
        return;
    endTyping();
    window().giveTypingBack();
}

void MacPopup::orderOut() {
    if (typing_)
        endTyping();
    close();
}

void MacPopup::handleLostTyping() {
    dismiss(Dismissal::typingLost);
    releaseTyping();
}

void MacPopup::endTyping() {
    typing_ = false;
    panels_.typing_ = nullptr;
    watches_.reset();
    idle_.stop();
}

void MacPopup::dismiss(Dismissal reason) {
    if (!typing_ || std::exchange(dismissed_, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this, reason, shows = shows_] {
            if (shows == shows_ && isShown() && onDismiss)
                onDismiss(reason);
        },
        Qt::QueuedConnection);
}

bool MacPopup::eventFilter(QObject *content, QEvent *event) {
    if (typing_ && isInput(event->type()))
        idle_.start();
    return QObject::eventFilter(content, event);
}

}  // namespace pimloft
