// SPDX-License-Identifier: MIT
#include "stage.h"

#include "desktop/support/first_run.h"

#include <thread>

namespace pimloft::bench {

using namespace test;

Stage::Stage(const QJsonObject &preferences)
    : session({.windowManager = QStringLiteral("openbox"), .serverArguments = {}}),
      desktop(session.display()) {
    test::skipFirstRun(session, preferences);
}

Stage::~Stage() {
    for (auto &client : clients_) {
        client->kill();
        client->waitForFinished();
    }
}

bool Stage::shortcutsAreLive() const {
    return desktop.isKeyTaken(KEY_6, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_4);
}

Program &Stage::startPimloft() {
    pimloft_.reset();
    pimloft_ = std::make_unique<Program>(session);
    if (!waitUntil([this] { return shortcutsAreLive(); }))
        qFatal("Pimloft does not come up: %s", qPrintable(pimloft_->complaints()));
    return *pimloft_;
}

xcb_window_t Stage::openWindow(const QString &program, const QStringList &arguments, const QString &title) {
    clients_.push_back(session.start(program, arguments));
    if (!waitUntil([&] { return desktop.window(title).has_value(); }))
        qFatal("%s does not open its window", qPrintable(program));
    const xcb_window_t window = *desktop.window(title);
    desktop.activate(window);
    waitUntil([&] { return desktop.activeWindow() == window; });
    return window;
}

void copyText(const Stage &stage, const QString &text) {
    const auto owner = stage.session.start(QStringLiteral("xclip"),
                                           {QStringLiteral("-selection"), QStringLiteral("clipboard")});
    owner->write(text.toUtf8());
    owner->closeWriteChannel();
    owner->waitForFinished();  // it goes on in the background
}

void rest(std::chrono::milliseconds time) {
    std::this_thread::sleep_for(time);
}

}  // namespace pimloft::bench
