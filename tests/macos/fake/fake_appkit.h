// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace pimloft::test::mac {

struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
};

struct Screen {
    std::uint32_t number;
    Rect frame;
    Rect visible;
};

struct RunningApplication {
    std::optional<std::string> name;
    std::optional<std::string> bundleId;
    int process;
    long policy = 0;
    bool hasIcon = true;
};

/// What AppKit shows of the desktop.
struct Desktop {
    bool isDark = false;
    bool hasHighContrast = false;
    bool reducesMotion = false;
    std::vector<Screen> screens;
    std::optional<std::uint32_t> mainScreen;
    double pointerX = 0;
    double pointerY = 0;
    std::vector<RunningApplication> applications;
    std::optional<int> frontProcess;
    bool opensLinks = true;
    bool hasSymbols = true;
    double symbolWidth = 16;  ///< points; as high as 16
};
Desktop &desktop();

// What the system tells.
void changeAppearance(bool isDark);
/// Something about the appearance changed that is not its darkness.
void touchAppearance();
void changeDisplayOptions(bool highContrast, bool reducedMotion);
void changeScreens(std::vector<Screen> screens);
void activateApplication(int process);
void leaveSession();
void sleepScreens();
/// A button goes down in another application: 1 the left, 2 the right, 3 another one.
void clickElsewhere(int button);

/// Observers, monitors and the like that are still registered.
int registrations();

/// The instances of a class that are alive.
int liveInstances(const std::string &className);

// Panels, numbered from 1 in the order of their making.

struct PanelState {
    long style = -1;
    long backing = -1;
    bool isDeferred = false;
    long level = 0;
    unsigned long behavior = 0;
    long animation = 0;
    bool isOpaque = true;
    bool hasShadow = true;
    bool hasClearBackground = false;
    bool ignoresClicks = false;
    bool movesByBackground = true;
    bool hidesWithApplication = true;
    bool isReleasedWhenClosed = true;
    bool isShown = false;
    bool isKey = false;
    double alpha = 1;
    Rect frame;
    int subviews = 0;
};
/// Nothing for a panel that is gone.
std::optional<PanelState> panel(int number);
/// Another window of this application gets the keyboard.
void makeAnotherWindowKey();

/// A view as Qt makes one for its window; owned by the test.
std::uintptr_t makeView();
void releaseView(std::uintptr_t view);
/// A window as Qt makes one, at this level. Answers its view.
std::uintptr_t makeWindow(long level);
void releaseWindow(std::uintptr_t view);
/// Where Qt puts windows that stay on top.
inline constexpr long modalPanelLevel = 8;

// The general pasteboard.

struct Board {
    long changes = 1;
    /// In the order of their offering; bytes as they are.
    std::vector<std::pair<std::string, std::string>> types;
    std::vector<std::string> links;
    std::vector<std::string>
        numberedLinks;  ///< links that name their file by number; the other list has the path
    bool changesWhileRead = false;
};
Board &board();

// Scripts and the login item.

struct ScriptAnswer {
    std::optional<std::vector<std::optional<std::string>>> list;
    std::optional<std::string> text;
    std::optional<std::string> error;  ///< empty for one without a message
};
struct Scripts {
    std::map<std::string, ScriptAnswer> answers;
    bool canBeMade = true;
};
Scripts &scripts();

struct LoginItem {
    bool isRegistered = false;
    std::optional<std::string> refusal;
};
LoginItem &loginItem();

}  // namespace pimloft::test::mac
