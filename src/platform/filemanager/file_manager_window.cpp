// SPDX-License-Identifier: MIT
#include "platform/filemanager/file_manager_window.h"

#include "platform/x11/x11_active_window.h"
#include "platform/x11/x11_window_info.h"

#include <algorithm>
#include <array>

namespace pimloft {

namespace {

constexpr std::array kinds = {
    std::pair{"thunar", FileManagerKind::thunar},
    std::pair{"pcmanfm", FileManagerKind::pcmanfm},
    std::pair{"pcmanfm-qt", FileManagerKind::pcmanfmQt},
    std::pair{"nemo", FileManagerKind::nemo},
    std::pair{"nemo-desktop", FileManagerKind::nemo},
    std::pair{"caja", FileManagerKind::caja},
    std::pair{"org.gnome.nautilus", FileManagerKind::nautilus},
    std::pair{"nautilus", FileManagerKind::nautilus},
    std::pair{"dolphin", FileManagerKind::dolphin},
    std::pair{"org.kde.dolphin", FileManagerKind::dolphin},
};

bool has(const std::vector<std::uint32_t> &list, xcb_atom_t atom) {
    return std::find(list.begin(), list.end(), atom) != list.end();
}

FileManagerWindow::Part part(X11Session &session, xcb_window_t window) {
    using Part = FileManagerWindow::Part;
    if (windowType(session, window) == X11WindowType::desktop)
        return Part::desktop;
    const auto types = session.property32(window, session.atom("_NET_WM_WINDOW_TYPE"));
    const bool isNormal = types.empty() || has(types, session.atom("_NET_WM_WINDOW_TYPE_NORMAL"));
    const auto owner = session.property32(window, session.atom("WM_TRANSIENT_FOR"));
    return isNormal && owner.empty() ? Part::folder : Part::dialog;
}

}  // namespace

FileManagerKind fileManagerKind(const X11WindowNames &names) {
    for (const QString &name : {names.className, names.instance})
        for (const auto &[known, kind] : kinds)
            if (name.compare(QLatin1String(known), Qt::CaseInsensitive) == 0)
                return kind;
    return FileManagerKind::other;
}

std::optional<FileManagerWindow> fileManagerInFront(X11Session &session,
                                                    const std::function<bool(xcb_window_t)> &isFileManager) {
    const xcb_window_t window = activeWindow(session);
    if (window == XCB_NONE || !isFileManager(window))
        return std::nullopt;
    const auto text = [&](const char *property) {
        return QString::fromUtf8(session.property8(window, session.atom(property)));
    };
    return FileManagerWindow{
        .kind = fileManagerKind(windowNames(session, window)),
        .part = part(session, window),
        .window = window,
        .process = windowProcess(session, window).value_or(ProcessId{}),
        .title = text("_NET_WM_NAME"),
        .role = text("WM_WINDOW_ROLE"),
        .busName = text("_GTK_UNIQUE_BUS_NAME"),
        .objectPath = text("_GTK_WINDOW_OBJECT_PATH"),
        .answersPing =
            has(session.property32(window, session.atom("WM_PROTOCOLS")), session.atom("_NET_WM_PING")),
    };
}

}  // namespace pimloft
