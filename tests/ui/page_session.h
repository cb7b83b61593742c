// SPDX-License-Identifier: MIT
#pragma once

#include "app/accessibility_manager.h"
#include "app/app_state.h"
#include "app/process.h"
#include "app/settings_manager.h"
#include "platform/fake_desktop.h"
#include "ui/kit/theme.h"
#include "ui/quick_view_host.h"
#include "updates/update_manager.h"

#include <QQuickItem>
#include <QQuickWindow>
#include <QStringList>
#include <QTemporaryDir>

namespace pimloft::test {

/// The running program on a pretended desktop, with windows as real as the Qt platform that the test runs on.
class PageSession {
public:
    PageSession();
    ~PageSession();

    FakeDesktop desktop;
    SystemClock clock;

private:
    Dirs dirs() const;

    QTemporaryDir home_;

public:
    Process process;

    AppState &appState() { return AppState::shared(); }
    AccessibilityManager &accessibility() { return AccessibilityManager::shared(); }
    SettingsManager &settings() { return SettingsManager::shared(); }
    UpdateManager &updates() { return UpdateManager::shared(); }
    Theme &theme() { return Theme::shared(); }
    QuickViewHost &views();
    /// As at the end of the program, before what has views of its own is gone.
    void endViews();

    /// What Qt and QML complained about since the last call. Nothing is expected.
    static QStringList takeWarnings();

private:
    std::unique_ptr<QuickViewHost> views_;
};

/// The newest window of ours on screen, when the page in it is made; fails the test if there is none.
QQuickWindow *shownWindow();
/// The same after another page was picked in it.
void waitForPage(QQuickWindow &window);

/// What a screen reader is told of a window: "role: name" in the order of the items, with the state in
/// brackets.
QStringList spoken(QQuickWindow *window);

/// The item that a screen reader calls by this name; null if there is none.
QQuickItem *named(QQuickWindow *window, const QString &name);

/// Every visible text below an item.
QStringList texts(QQuickItem *root);

/// Presses and releases a key in a window.
void type(QWindow *window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Clicks the middle of an item.
void click(QQuickItem *item);

}  // namespace pimloft::test
