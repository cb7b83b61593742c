// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pasteboard/pasteboard.h"
#include "platform/x11/selection_content.h"

/// By which names X11 programs offer each kind of content. Pure; any thread.
namespace pimloft {

/// What to ask for, the best first. The tags are the types.
std::vector<SelectionWish> wishesFor(const std::vector<PasteType> &wanted);

/// Everything that other programs may ask the items for. Of two items of one type the first one counts.
SelectionContent formsOf(const std::vector<PasteItem> &items);

}  // namespace pimloft
