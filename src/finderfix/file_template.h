// SPDX-License-Identifier: MIT
#pragma once

#include "platform/templates_menu/templates_menu.h"

#include <QString>

#include <array>

namespace pimloft {

/// A kind of file that can be made anew. Pure; any thread.
enum class FileTemplate { text, markdown, html, python, shell };

inline constexpr std::array allFileTemplates = {FileTemplate::text, FileTemplate::markdown,
                                                FileTemplate::html, FileTemplate::python,
                                                FileTemplate::shell};

/// The file extension, which also names the kind.
QString rawValue(FileTemplate kind);
QString title(FileTemplate kind);
/// Name of a system symbol.
QString icon(FileTemplate kind);
/// A new file of this kind.
NewFileKind newFile(FileTemplate kind);

}  // namespace pimloft
