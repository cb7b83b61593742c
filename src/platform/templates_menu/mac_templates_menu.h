// SPDX-License-Identifier: MIT
#pragma once

#include "platform/templates_menu/templates_menu.h"

namespace pimloft {

/// Nothing to do here: the menu belongs to an extension of the file manager, a program of its own that knows
/// the kinds and reads the user's templates itself. Main thread.
class MacTemplatesMenu final : public TemplatesMenuService {
public:
    void offer(std::vector<NewFileKind>, std::vector<FileUrl>) override {}
    void withdraw() override {}
};

}  // namespace pimloft
