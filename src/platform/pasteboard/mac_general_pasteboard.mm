// SPDX-License-Identifier: MIT
#include "platform/pasteboard/mac_general_pasteboard.h"

#include "platform/mac/ns_text.h"

#import <AppKit/AppKit.h>

namespace pimloft {

namespace {

NSPasteboard *general() {
    return [NSPasteboard generalPasteboard];
}

NSPasteboardType nameOf(PasteType type) {
    switch (type) {
    case PasteType::png:
        return NSPasteboardTypePNG;
    case PasteType::tiff:
        return NSPasteboardTypeTIFF;
    case PasteType::html:
        return NSPasteboardTypeHTML;
    case PasteType::rtf:
        return NSPasteboardTypeRTF;
    case PasteType::secretMark:
        // By agreement among programs; the system has no name for it.
        return @"org.nspasteboard.ConcealedType";
    case PasteType::plainText:
    case PasteType::fileUrls:
        break;
    }
    return NSPasteboardTypeString;
}

std::optional<std::string> textOfType(NSPasteboardType type) {
    NSString *text = [general() stringForType:type];
    return text ? std::optional(plainText(text)) : std::nullopt;
}

}  // namespace

long generalChangeCount() {
    @autoreleasepool {
        return [general() changeCount];
    }
}

std::vector<std::string> generalTypes() {
    @autoreleasepool {
        std::vector<std::string> types;
        for (NSPasteboardType type in [general() types])
            types.push_back(plainText(type));
        return types;
    }
}

std::optional<MacPasteBytes> generalData(PasteType type, std::size_t cap) {
    @autoreleasepool {
        NSData *data = [general() dataForType:nameOf(type)];
        if (!data)
            return std::nullopt;
        MacPasteBytes result{{}, [data length]};
        if (result.count <= cap)
            result.bytes.assign(static_cast<const char *>([data bytes]), result.count);
        return result;
    }
}

std::optional<std::string> generalText() {
    @autoreleasepool {
        return textOfType(NSPasteboardTypeString);
    }
}

std::optional<std::string> generalText(const std::string &type) {
    @autoreleasepool {
        return textOfType(foundationText(type));
    }
}

std::vector<std::string> generalFileLinks() {
    @autoreleasepool {
        NSArray *classes = [NSArray arrayWithObject:[NSURL class]];
        NSDictionary *options = [NSDictionary dictionaryWithObject:[NSNumber numberWithBool:YES]
                                                            forKey:NSPasteboardURLReadingFileURLsOnlyKey];
        std::vector<std::string> links;
        // A link may name the file by number; others expect its path.
        for (NSURL *link in [general() readObjectsForClasses:classes options:options])
            links.push_back(plainText([[link filePathURL] absoluteString]));
        return links;
    }
}

void clearGeneral() {
    @autoreleasepool {
        [general() clearContents];
    }
}

void setGeneralText(const std::string &text) {
    @autoreleasepool {
        [general() setString:foundationText(text) forType:NSPasteboardTypeString];
    }
}

void setGeneralData(PasteType type, const std::string &bytes) {
    @autoreleasepool {
        [general() setData:[NSData dataWithBytes:bytes.data() length:bytes.size()] forType:nameOf(type)];
    }
}

void writeGeneralLinks(const std::vector<std::string> &links) {
    @autoreleasepool {
        NSMutableArray *objects = [NSMutableArray array];
        for (const std::string &link : links)
            if (NSURL *url = [NSURL URLWithString:foundationText(link)])
                [objects addObject:url];
        [general() writeObjects:objects];
    }
}

}  // namespace pimloft
