// SPDX-License-Identifier: MIT
#pragma once

#include "platform/templates_menu/template_entries.h"
#include "platform/templates_menu/templates_menu.h"

#include <QThreadPool>

#include <optional>

namespace pimloft {

/// The menus that file managers make from the user's templates folder. Its files are written on a thread of
/// its own; the end of the service waits for it.
class XdgTemplatesMenu final : public TemplatesMenuService {
public:
    /// On the folder that the desktop names. `support` is where the record of our entries is kept.
    explicit XdgTemplatesMenu(const QString &support);
    /// On another folder; none is a desktop that names none.
    XdgTemplatesMenu(const std::optional<FileUrl> &folder, const FileUrl &home, const QString &support);
    ~XdgTemplatesMenu() override;

    void offer(std::vector<NewFileKind> kinds, std::vector<FileUrl> templates) override;
    void withdraw() override;

private:
    std::optional<TemplateEntries> entries_;  ///< the thread's
    QThreadPool thread_;
};

}  // namespace pimloft
