// SPDX-License-Identifier: MIT
#pragma once

#include "page_session.h"
#include "plain_panels.h"

#include <functional>
#include <string>

namespace pimloft::test {

/// Shows every window and page of the program one after the other, in the state in which it has the most to
/// say.
class EveryPage {
public:
    explicit EveryPage(PageSession &session);
    ~EveryPage();

    /// Called with the name of what is on screen, and with its window, drawn. The window may be resized.
    using Visitor = std::function<void(const std::string &name, QQuickWindow &window)>;
    void visit(const Visitor &visitor);

    /// What the user has written or installed, which may be cut short.
    static bool isOfUser(const QString &text);

private:
    void visitFirstRun(const Visitor &visitor);
    void visitNews(const Visitor &visitor);
    void visitSettings(const Visitor &visitor);
    void visitSheet(const Visitor &visitor);
    void visitPopover(const Visitor &visitor);
    void visitHistory(const Visitor &visitor);

    PageSession &session_;
    PlainPanels panels_;
};

/// The sheet over the window's content if there is one, else the content.
QQuickItem *topmost(QQuickWindow &window);

/// Puts everything in the window into its place, as for the next frame.
void settle(QQuickWindow &window);

}  // namespace pimloft::test
