// SPDX-License-Identifier: MIT
#include "platform/mac/cf_text.h"

namespace pimloft {

CfRef<CFStringRef> cfText(const QString &text) {
    return CfRef(CFStringCreateWithCharacters(kCFAllocatorDefault,
                                              reinterpret_cast<const UniChar *>(text.utf16()), text.size()));
}

QString qtText(CFStringRef text) {
    if (!text)
        return {};
    QString result(qsizetype(CFStringGetLength(text)), Qt::Uninitialized);
    CFStringGetCharacters(text, CFRangeMake(0, result.size()), reinterpret_cast<UniChar *>(result.data()));
    return result;
}

}  // namespace pimloft
