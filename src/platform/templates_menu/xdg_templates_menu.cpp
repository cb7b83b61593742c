// SPDX-License-Identifier: MIT
#include "platform/templates_menu/xdg_templates_menu.h"

#include <glib.h>

namespace pimloft {

namespace {

FileUrl homeFolder() {
    return FileUrl::fromPath(g_get_home_dir()).value_or(*FileUrl::fromPath("/"));
}

std::optional<FileUrl> templatesFolder() {
    const char *path = g_get_user_special_dir(G_USER_DIRECTORY_TEMPLATES);
    return path ? FileUrl::fromPath(path) : std::nullopt;
}

}  // namespace

XdgTemplatesMenu::XdgTemplatesMenu(const QString &support)
    : XdgTemplatesMenu(templatesFolder(), homeFolder(), support) {
}

XdgTemplatesMenu::XdgTemplatesMenu(const std::optional<FileUrl> &folder, const FileUrl &home,
                                   const QString &support) {
    thread_.setMaxThreadCount(1);
    if (folder)
        entries_.emplace(*folder, home, support + QStringLiteral("/templates_menu.json"));
}

XdgTemplatesMenu::~XdgTemplatesMenu() {
    thread_.waitForDone();
}

void XdgTemplatesMenu::offer(std::vector<NewFileKind> kinds, std::vector<FileUrl> templates) {
    if (entries_)
        thread_.start([this, kinds = std::move(kinds), templates = std::move(templates)] {
            entries_->put(kinds, templates);
        });
}

void XdgTemplatesMenu::withdraw() {
    if (entries_)
        thread_.start([this] { entries_->removeAll(); });
}

}  // namespace pimloft
