// SPDX-License-Identifier: MIT
#include "platform/x11/x11_end.h"

#include "platform/x11/x11_session.h"

#include <QString>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace pimloft {

namespace {

/// Handlers of the process's end can be given nothing but globals.
std::function<void()> atEnd;
QtMessageHandler before;

void leaveAtEnd() {
    if (atEnd)
        atEnd();
}

void complain(QtMsgType type, const QMessageLogContext &context, const QString &text) {
    // The end of a login is nothing to report.
    if (!text.startsWith(QLatin1String("The X11 connection broke")))
        before(type, context, text);
}

}  // namespace

X11End::X11End(X11Session &session, std::function<void()> save) : session_(session), save_(std::move(save)) {
    // Whoever notices first: this connection, or Qt on its own, which then exits.
    session_.onLost = [this] { leave(); };
    static const int registered = std::atexit(leaveAtEnd);
    if (registered == 0)
        atEnd = [this] { leave(); };
    before = qInstallMessageHandler(complain);
}

X11End::~X11End() {
    qInstallMessageHandler(before);
    atEnd = nullptr;
    session_.onLost = nullptr;
}

void X11End::leave() {
    if (const auto save = std::exchange(save_, nullptr)) {
        save();
        std::fflush(nullptr);
        // Nothing may be torn down: what is below on the stack uses it, and what belongs to windows has no
        // server.
        std::_Exit(EXIT_SUCCESS);
    }
}

}  // namespace pimloft
