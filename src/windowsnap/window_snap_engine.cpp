// SPDX-License-Identifier: MIT
#include "windowsnap/window_snap_engine.h"

#include "app/hotkey_manager.h"
#include "app/process.h"
#include "app/settings_manager.h"
#include "base/console.h"
#include "base/geometry.h"
#include "platform/events/mouse_watch.h"
#include "platform/panels/panels.h"
#include "windowsnap/snap_sensitivity.h"

#include <QPointer>

#include <algorithm>
#include <cmath>

namespace pimloft {

namespace {

/// How far the pointer travels with the button down before it is a drag.
constexpr double dragThreshold = 5.0;

}  // namespace

WindowSnapEngine &WindowSnapEngine::shared() {
    return Process::current().shared<WindowSnapEngine>([](Process &process) {
        const Platform &platform = process.platform();
        return std::make_unique<WindowSnapEngine>(platform.mouse, platform.displays, platform.windows,
                                                  platform.panels, HotkeyManager::shared(),
                                                  SettingsManager::shared());
    });
}

WindowSnapEngine::WindowSnapEngine(MouseWatch &mouse, DisplayService &displays, WindowService &windows,
                                   PanelService &panels, HotkeyManager &hotkeys, SettingsManager &settings)
    : mouse_(mouse), displays_(displays), hotkeys_(hotkeys), settings_(settings),
      axWindows_(windows, displays), overlayController_(panels), overlayPosts_(std::make_unique<QObject>()) {
}

WindowSnapEngine::~WindowSnapEngine() {
    unregisterHotkeys();
}

void WindowSnapEngine::start() {
    if (std::exchange(isActive_, true))
        return;
    setupEventTap();
    registerHotkeys();
}

void WindowSnapEngine::stop() {
    isActive_ = false;
    removeEventTap();
    unregisterHotkeys();
    // An overlay that is still to be shown would stay: no drag would ever end it.
    overlayPosts_ = std::make_unique<QObject>();
    overlayController_.hide();
    isDragging_ = false;
    currentSnapZone_.reset();
}

void WindowSnapEngine::setupEventTap() {
    if (eventTap_)
        return;
    eventTap_ = mouse_.install([this](const MouseEvent &event) { handleMouseEvent(event); });
    if (!eventTap_)
        printLine(QStringLiteral("WindowSnapEngine: Failed to create event tap. "
                                 "Accessibility permission may be missing."));
}

void WindowSnapEngine::removeEventTap() {
    eventTap_.reset();
}

void WindowSnapEngine::registerHotkeys() {
    for (const SnapShortcut &shortcut : snapShortcuts) {
        const auto action = [engine = QPointer(this), action = shortcut.action] {
            if (engine)
                std::visit([&](auto what) { engine->perform(what); }, action);
        };
        hotkeyIDs_.push_back(hotkeys_.registerHotkey(shortcut.key, snapModifiers, action));
    }
}

void WindowSnapEngine::unregisterHotkeys() {
    for (const std::uint32_t id : std::exchange(hotkeyIDs_, {}))
        hotkeys_.unregister(id);
}

void WindowSnapEngine::handleMouseEvent(const MouseEvent &event) {
    const auto &displays = displays_.displays();
    const QPointF location =
        displays.empty() ? event.location : flipped(event.location, displays.front().frame.height());
    switch (event.type) {
    case MouseEventType::leftDown:
        dragStartLocation_ = location;
        isDragging_ = false;
        break;
    case MouseEventType::leftDragged:
        beginDragIfFarEnough(location);
        if (isDragging_)
            followDrag(location);
        break;
    case MouseEventType::leftUp:
        endDrag();
        break;
    }
}

void WindowSnapEngine::beginDragIfFarEnough(QPointF location) {
    const QPointF way = location - dragStartLocation_;
    // Any drag counts while some window has the focus, wherever it began: asking which window the user holds
    // would cost more than it tells.
    if (!isDragging_ && std::hypot(way.x(), way.y()) > dragThreshold)
        isDragging_ = axWindows_.focusedWindow().has_value();
}

void WindowSnapEngine::followDrag(QPointF location) {
    const std::optional<Display> screen = screenContaining(location);
    if (!screen)
        return;
    const std::optional<SnapZone> zone =
        detect(location, *screen, snapSensitivity(settings_.defaults()), displays_.displays());
    if (zone == currentSnapZone_ && currentScreen_ == screen)
        return;
    currentSnapZone_ = zone;
    currentScreen_ = screen;
    updateOverlay();
}

void WindowSnapEngine::updateOverlay() {
    auto change = [this]() -> std::function<void()> {
        if (!currentSnapZone_)
            return [this] { overlayController_.hide(); };
        return [this, frame = targetFrame(*currentSnapZone_, *currentScreen_), screen = *currentScreen_] {
            overlayController_.show(frame, screen);
        };
    }();
    QMetaObject::invokeMethod(overlayPosts_.get(), std::move(change), Qt::QueuedConnection);
}

void WindowSnapEngine::endDrag() {
    if (isDragging_ && currentSnapZone_) {
        const auto land = [this, zone = *currentSnapZone_, screen = *currentScreen_] {
            // A display that was disconnected during the drag is no place to put a window on; one that
            // changed is filled as it is now.
            if (const auto display = connected(screen))
                snapFocusedWindow(zone, display);
            overlayController_.hide();
        };
        QMetaObject::invokeMethod(this, land, Qt::QueuedConnection);
    }
    isDragging_ = false;
    currentSnapZone_.reset();
    currentScreen_.reset();
}

void WindowSnapEngine::snapFocusedWindow(SnapZone zone, const std::optional<Display> &display) {
    const auto window = axWindows_.focusedWindow();
    const auto target = display ? display : displays_.mainDisplay();
    if (!window || !target)
        return;
    rememberFrame(*window);
    axWindows_.setFrame(*window, targetFrame(zone, *target));
}

void WindowSnapEngine::snapFocusedWindow(const QRectF &rect) {
    const auto window = axWindows_.focusedWindow();
    if (!window)
        return;
    rememberFrame(*window);
    axWindows_.setFrame(*window, rect);
}

void WindowSnapEngine::rememberFrame(const WindowReference &window) {
    const auto position = axWindows_.getPosition(window);
    const auto size = axWindows_.getSize(window);
    const auto process = axWindows_.processId(window);
    if (position && size && process)
        previousFrames_[*process] = QRectF(*position, *size);
}

std::optional<Display> WindowSnapEngine::screenContaining(QPointF point) const {
    // All four edges count: the pointer's outermost rows and columns lie exactly on them.
    for (const Display &display : displays_.displays())
        if (display.frame.contains(point))
            return display;
    return displays_.mainDisplay();
}

std::optional<Display> WindowSnapEngine::connected(const Display &display) const {
    for (const Display &candidate : displays_.displays())
        if (candidate == display)
            return candidate;
    return std::nullopt;
}

void WindowSnapEngine::perform(SnapZone zone) {
    snapFocusedWindow(zone, std::nullopt);
}

void WindowSnapEngine::perform(SnapLayout layout) {
    if (const auto screen = displays_.mainDisplay())
        snapFocusedWindow(frames(layout, *screen).front());
}

void WindowSnapEngine::perform(RestorePreviousFrame) {
    const auto window = axWindows_.focusedWindow();
    const auto process = window ? axWindows_.processId(*window) : std::nullopt;
    const auto remembered = process ? previousFrames_.find(*process) : previousFrames_.end();
    if (remembered == previousFrames_.end())
        return;
    // The remembered rectangle is in accessibility points and is taken as desktop points here.
    axWindows_.setFrame(*window, remembered->second);
    previousFrames_.erase(remembered);
}

}  // namespace pimloft
