// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pasteboard/pasteboard.h"
#include "platform/x11/selection_content.h"

/// By which names X11 programs offer each kind of content. Pure; any thread.
namespace pimloft {

/// What is offered beside content that is to be kept out of histories: the word "secret".
inline constexpr char secretMark[] = "x-kde-passwordManagerHint";

/// What to ask for, the best first. The tags are the types.
std::vector<SelectionWish> wishesFor(const std::vector<PasteType> &wanted);

/// Everything that other programs may ask the items for. Of two items of one type the first one counts.
SelectionContent formsOf(const std::vector<PasteItem> &items);

}  // namespace pimloft
