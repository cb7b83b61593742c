// SPDX-License-Identifier: MIT
#import "fake_ns.h"

#include "fake_cf.h"

#include <vector>

using namespace pimloft::test::mac;

namespace {

struct Space : Object {};

struct Bitmap : Object {
    std::uint8_t *data = nullptr;
    std::size_t side = 0;
};

CGContextRef current;
std::vector<CGContextRef> saved;

void fill(NSRect rect, std::uint32_t color) {
    auto *bitmap = as<Bitmap>(current, "drawing");
    if (!bitmap)
        return;
    for (std::size_t row = 0; row < bitmap->side; ++row)
        for (std::size_t column = 0; column < bitmap->side; ++column) {
            // Rows of the memory go down, the drawing's up.
            const double x = double(column) + 0.5;
            const double y = double(bitmap->side - row) - 0.5;
            if (!NSPointInRect(NSMakePoint(x, y), rect))
                continue;
            std::uint8_t *pixel = bitmap->data + (row * bitmap->side + column) * 4;
            for (int part = 0; part < 4; ++part)
                pixel[part] = std::uint8_t(color >> (24 - 8 * part));
        }
}

}  // namespace

@interface FakeContext : NSGraphicsContext {
@public
    CGContextRef context_;
}
@end

@interface FakeImage : NSImage {
@public
    std::uint32_t color_;
    NSSize size_;
    BOOL isTemplate_;
}
@end

namespace pimloft::test::mac {

void resetDrawing() {
    current = nullptr;
    saved.clear();
}

NSImage *makeImage(std::uint32_t color, NSSize size) {
    FakeImage *image = [[FakeImage new] autorelease];
    image->color_ = color;
    image->size_ = size;
    return image;
}

}  // namespace pimloft::test::mac

extern "C" {

const CFStringRef kCGColorSpaceSRGB = __CFStringMakeConstantString("kCGColorSpaceSRGB");

CGColorSpaceRef CGColorSpaceCreateWithName(CFStringRef name) {
    return name == kCGColorSpaceSRGB ? refOf<CGColorSpaceRef>(new Space) : nullptr;
}

CGContextRef CGBitmapContextCreate(void *data, size_t width, size_t height, size_t bitsPerComponent,
                                   size_t bytesPerRow, CGColorSpaceRef space, UInt32 bitmapInfo) {
    if (!as<Space>(space, "CGBitmapContextCreate") || width != height || bitsPerComponent != 8 ||
        bytesPerRow != width * 4 || bitmapInfo != kCGImageAlphaPremultipliedLast) {
        complain("CGBitmapContextCreate: no such bitmap");
        return nullptr;
    }
    auto *bitmap = new Bitmap;
    bitmap->data = static_cast<std::uint8_t *>(data);
    bitmap->side = width;
    return refOf<CGContextRef>(bitmap);
}

}  // extern "C"

@implementation FakeContext
@end

@implementation NSGraphicsContext
+ (NSGraphicsContext *)graphicsContextWithCGContext:(CGContextRef)context flipped:(BOOL)flipped {
    if (flipped)
        complain("graphicsContextWithCGContext: upside down");
    FakeContext *object = [[FakeContext new] autorelease];
    object->context_ = context;
    return object;
}

+ (void)setCurrentContext:(NSGraphicsContext *)context {
    if (saved.empty())
        complain("setCurrentContext: without saving what was current");
    current = static_cast<FakeContext *>(context)->context_;
}

+ (void)saveGraphicsState {
    saved.push_back(current);
}

+ (void)restoreGraphicsState {
    if (saved.empty())
        return complain("restoreGraphicsState: nothing was saved");
    current = saved.back();
    saved.pop_back();
}
@end

@implementation NSImage
+ (NSImage *)imageWithSystemSymbolName:(NSString *)name accessibilityDescription:(NSString *)description {
    (void)description;
    note("symbol " + cppString(name));
    return desktop().hasSymbols ? makeImage(0x000000ff, NSMakeSize(desktop().symbolWidth, 16)) : nil;
}

- (NSSize)size {
    return NSZeroSize;
}

- (void)setTemplate:(BOOL)isTemplate {
    (void)isTemplate;
}

- (void)drawInRect:(NSRect)rect
          fromRect:(NSRect)source
         operation:(NSCompositingOperation)operation
          fraction:(CGFloat)opacity {
    (void)rect;
    (void)source;
    (void)operation;
    (void)opacity;
}
@end

@implementation FakeImage
- (NSSize)size {
    return size_;
}

- (void)setTemplate:(BOOL)isTemplate {
    isTemplate_ = isTemplate;
    note("as a template");
}

- (void)drawInRect:(NSRect)rect
          fromRect:(NSRect)source
         operation:(NSCompositingOperation)operation
          fraction:(CGFloat)opacity {
    if (!NSEqualRects(source, NSZeroRect) || operation != NSCompositingOperationSourceOver || opacity != 1)
        complain("drawInRect: not the whole picture as it is");
    fill(rect, color_);
}
@end
