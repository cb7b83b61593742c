// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <cstdint>
#include <functional>

class QWindow;

namespace pimloft {

/// Puts windows that stay on top among the system's floating ones. By itself Qt puts them where modal panels
/// are, above what other programs float. Main thread; lives as long as there are windows.
class MacFloatingWindows final : public QObject {
    Q_OBJECT

public:
    /// Answers the native view of a window that exists.
    using ViewOf = std::function<std::uintptr_t(QWindow &)>;

    /// Watches the windows of the application from here on.
    explicit MacFloatingWindows(ViewOf viewOf);

    bool eventFilter(QObject *object, QEvent *event) override;

private:
    const ViewOf viewOf_;
};

}  // namespace pimloft
