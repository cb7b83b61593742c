// SPDX-License-Identifier: MIT
#include "platform/displays/x11_struts.h"

#include "platform/x11/x11_session.h"

#include <algorithm>

namespace pimloft {

X11Struts::X11Struts(X11Session &session)
    : session_(session), clients_(session.atom("_NET_CLIENT_LIST")), workArea_(session.atom("_NET_WORKAREA")),
      partial_(session.atom("_NET_WM_STRUT_PARTIAL")), whole_(session.atom("_NET_WM_STRUT")) {
    session_.select(session_.root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
}

std::vector<Strut> X11Struts::read(QSize root) {
    struct Question {
        xcb_get_property_cookie_t partial;
        xcb_get_property_cookie_t whole;
    };
    const auto ask = [&](xcb_window_t window) {
        return Question{session_.askProperty(window, partial_), session_.askProperty(window, whole_)};
    };
    const auto answer = [&](const Question &question) {
        const auto partial = session_.values32(question.partial);
        return parseStrut(partial, session_.values32(question.whole), root);
    };

    struct Client {
        xcb_window_t window;
        xcb_get_property_cookie_t types;
        Question strut;
    };
    const xcb_atom_t types = session_.atom("_NET_WM_WINDOW_TYPE");
    const xcb_atom_t dock = session_.atom("_NET_WM_WINDOW_TYPE_DOCK");
    std::vector<Client> clients;
    for (const xcb_window_t window : session_.property32(session_.root(), clients_))
        clients.push_back({window, session_.askProperty(window, types), ask(window)});

    // Other windows' properties change with every key press; should one of them begin to reserve space, the
    // window manager's own work area tells.
    std::vector<Question> listenedTo;
    for (const Client &client : clients) {
        const auto listed = session_.values32(client.types);
        const bool reserves = answer(client.strut).has_value();
        if (!reserves && std::find(listed.begin(), listed.end(), dock) == listed.end())
            continue;
        session_.select(client.window, XCB_EVENT_MASK_PROPERTY_CHANGE);
        // Once more: it may have changed before we listened.
        listenedTo.push_back(ask(client.window));
    }

    std::vector<Strut> struts;
    for (const Question &question : listenedTo)
        if (const auto strut = answer(question))
            struts.push_back(*strut);
    return struts;
}

bool X11Struts::isChangedBy(const xcb_generic_event_t &event) {
    if (X11Session::type(event) != XCB_PROPERTY_NOTIFY)
        return false;
    const auto &notice = reinterpret_cast<const xcb_property_notify_event_t &>(event);
    if (notice.window == session_.root())
        return notice.atom == clients_ || notice.atom == workArea_;
    return notice.atom == partial_ || notice.atom == whole_;
}

}  // namespace pimloft
