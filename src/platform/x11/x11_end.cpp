// SPDX-License-Identifier: MIT
#include "platform/x11/x11_end.h"

#include "platform/x11/x11_session.h"

#include <QString>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace pimloft {

namespace {

/// A message handler can be given nothing but globals.
std::function<void()> whenQtNotices;
QtMessageHandler before;

/// What Qt says right before it exits is the last moment at which all of the program is still there: handlers
/// of the exit itself come when half of it has been torn down.
void hear(QtMsgType type, const QMessageLogContext &context, const QString &text) {
    if (whenQtNotices && text.startsWith(QLatin1String("The X11 connection broke")))
        whenQtNotices();
    else
        before(type, context, text);
}

}  // namespace

X11End::X11End(X11Session &session, std::function<void()> save) : session_(session), save_(std::move(save)) {
    session_.onLost = [this] { leave(); };
    whenQtNotices = [this] { leave(); };
    before = qInstallMessageHandler(hear);
}

X11End::~X11End() {
    qInstallMessageHandler(before);
    whenQtNotices = nullptr;
    session_.onLost = nullptr;
}

void X11End::leave() {
    const auto save = std::exchange(save_, nullptr);
    if (!save)
        return;
    save();
    std::fflush(nullptr);
    // Nothing may be torn down: what is below on the stack uses it, and what belongs to windows has no
    // server.
    std::_Exit(EXIT_SUCCESS);
}

}  // namespace pimloft
