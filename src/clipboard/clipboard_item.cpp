// SPDX-License-Identifier: MIT
#include "clipboard/clipboard_item.h"

#include "clipboard/clipboard_preview.h"

namespace pimloft {

QString ClipboardItem::preview() const {
    return pimloft::preview(content);
}

}  // namespace pimloft
