// SPDX-License-Identifier: MIT
#include "platform/mac/cf_ref.h"
#include "platform/mac/mac_picture.h"
#include "platform/mac/ns_text.h"

#import <AppKit/AppKit.h>

namespace pimloft {

namespace {

/// The largest rectangle of the picture's shape in the middle of a square.
NSRect fitted(NSSize picture, CGFloat side) {
    const CGFloat longest = picture.width > picture.height ? picture.width : picture.height;
    if (longest <= 0)
        return NSMakeRect(0, 0, side, side);
    const CGFloat width = picture.width * side / longest;
    const CGFloat height = picture.height * side / longest;
    return NSMakeRect((side - width) / 2, (side - height) / 2, width, height);
}

MacPicture draw(NSImage *image, int side) {
    MacPicture picture{side, {}};
    if (!image)
        return picture;
    picture.pixels.resize(std::size_t(side) * std::size_t(side) * 4);
    const CfRef space(CGColorSpaceCreateWithName(kCGColorSpaceSRGB));
    const CfRef bitmap(CGBitmapContextCreate(picture.pixels.data(), std::size_t(side), std::size_t(side), 8,
                                             std::size_t(side) * 4, space.get(),
                                             CGBitmapInfo(kCGImageAlphaPremultipliedLast)));
    NSGraphicsContext *context = [NSGraphicsContext graphicsContextWithCGContext:bitmap.get() flipped:NO];
    [NSGraphicsContext saveGraphicsState];
    [NSGraphicsContext setCurrentContext:context];
    [image drawInRect:fitted([image size], side)
             fromRect:NSZeroRect
            operation:NSCompositingOperationSourceOver
             fraction:1];
    [NSGraphicsContext restoreGraphicsState];
    return picture;
}

}  // namespace

MacPicture applicationPicture(std::int32_t process, int side) {
    @autoreleasepool {
        return draw([[NSRunningApplication runningApplicationWithProcessIdentifier:process] icon], side);
    }
}

MacPicture filePicture(const std::string &path, int side) {
    @autoreleasepool {
        return draw([[NSWorkspace sharedWorkspace] iconForFile:foundationText(path)], side);
    }
}

MacPicture symbolPicture(const std::string &name, int side) {
    @autoreleasepool {
        NSImage *image = [NSImage imageWithSystemSymbolName:foundationText(name)
                                   accessibilityDescription:nil];
        [image setTemplate:YES];
        return draw(image, side);
    }
}

}  // namespace pimloft
