// SPDX-License-Identifier: MIT
#pragma once

#include "platform/mac/mac_notice.h"
#include "platform/panels/mac_panel.h"

#include <QTimer>

#include <optional>

namespace pimloft {

class MacPanels;

/// A panel that is typed into while another application stays the active one. Main thread.
class MacPopup final : public MacPanel {
public:
    MacPopup(MacPanels &panels, std::unique_ptr<QWindow> content, std::uintptr_t view);
    ~MacPopup() override;

    bool show(const QRectF &frame) override;
    void releaseTyping() override;
    void orderOut() override;

private:
    /// What is listened to while it has the keyboard.
    struct Watches {
        explicit Watches(MacPopup &popup);

        MacClickMonitor clicks;
        MacNotice activations;
        MacNotice sessions;
        MacNotice sleeps;
    };

    void handleLostTyping() override;
    void endTyping();
    void dismiss(Dismissal reason);
    bool eventFilter(QObject *content, QEvent *event) override;

    MacPanels &panels_;
    QTimer idle_;
    std::optional<Watches> watches_;
    bool typing_ = false;
    bool dismissed_ = false;
    unsigned shows_ = 0;
};

}  // namespace pimloft
