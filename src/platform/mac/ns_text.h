// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/Foundation.h>

#include <string>

namespace pimloft {

// Texts of Foundation and of C++, in UTF-8. Any thread.

/// Empty for no text.
inline std::string plainText(NSString *text) {
    const char *bytes = [text UTF8String];
    return bytes ? std::string(bytes, [text lengthOfBytesUsingEncoding:NSUTF8StringEncoding]) : std::string();
}

/// Lives as long as the autorelease pool. Nothing for what is no UTF-8.
inline NSString *foundationText(const std::string &text) {
    return [[[NSString alloc] initWithBytes:text.data() length:text.size()
                                   encoding:NSUTF8StringEncoding] autorelease];
}

}  // namespace pimloft
