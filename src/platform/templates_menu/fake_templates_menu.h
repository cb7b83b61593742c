// SPDX-License-Identifier: MIT
#pragma once

#include "platform/fake_log.h"
#include "platform/templates_menu/templates_menu.h"

namespace pimloft {

/// A menu that only says what it is told.
class FakeTemplatesMenu final : public TemplatesMenuService {
public:
    explicit FakeTemplatesMenu(FakeLog &log) : log_(log) {}

    void offer(std::vector<NewFileKind> kinds, std::vector<FileUrl> templates) override {
        QStringList names;
        for (const NewFileKind &kind : kinds)
            names << QString::fromUtf8(kind.name);
        for (const FileUrl &file : templates)
            names << file.name();
        log_.line(QStringLiteral("offer new files: ") + names.join(QStringLiteral(", ")));
    }
    void withdraw() override { log_.line(QStringLiteral("withdraw new files")); }

private:
    FakeLog &log_;
};

}  // namespace pimloft
