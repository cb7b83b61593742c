// SPDX-License-Identifier: MIT
#pragma once

#import <AppKit/AppKit.h>

#include "fake_appkit.h"
#include "fake_mac.h"

namespace pimloft::test::mac {

NSString *nsString(const std::string &text);
/// Nothing for nothing.
NSString *nsString(const std::optional<std::string> &text);
std::string cppString(NSString *text);

/// A picture of one colour, for tests that look at pixels.
NSImage *makeImage(std::uint32_t color, NSSize size);

// The parts of `resetAppKit`.
void resetBoard();
void resetDrawing();
void resetPanels();
void resetScripts();

}  // namespace pimloft::test::mac
