// SPDX-License-Identifier: MIT
#import "fake_ns.h"

using namespace pimloft::test::mac;

namespace {

const std::string *find(NSString *type) {
    for (const auto &[name, bytes] : board().types)
        if (name == cppString(type))
            return &bytes;
    return nullptr;
}

/// A read, during which another program may copy.
void noteRead(const std::string &what) {
    note("read " + what);
    if (board().changesWhileRead)
        ++board().changes;
}

void put(const std::string &what, NSString *type, std::string bytes) {
    note("set " + what + ' ' + cppString(type) + " " + std::to_string(bytes.size()) + " bytes");
    board().types.emplace_back(cppString(type), std::move(bytes));
}

}  // namespace

namespace pimloft::test::mac {

Board &board() {
    static Board board;
    return board;
}

void resetBoard() {
    board() = {};
}

}  // namespace pimloft::test::mac

extern "C" {
NSPasteboardType const NSPasteboardTypeString = @"public.utf8-plain-text";
NSPasteboardType const NSPasteboardTypePNG = @"public.png";
NSPasteboardType const NSPasteboardTypeTIFF = @"public.tiff";
NSPasteboardType const NSPasteboardTypeRTF = @"public.rtf";
NSPasteboardType const NSPasteboardTypeHTML = @"public.html";
NSPasteboardReadingOptionKey const NSPasteboardURLReadingFileURLsOnlyKey =
    @"NSPasteboardURLReadingFileURLsOnly";
}

/// A link that names its file by number.
@interface FakeNumberedURL : NSURL {
@public
    NSURL *path_;
}
@end

@implementation FakeNumberedURL
- (NSURL *)filePathURL {
    return path_;
}

- (void)dealloc {
    [path_ release];
    [super dealloc];
}
@end

@implementation NSPasteboard
+ (NSPasteboard *)generalPasteboard {
    static NSPasteboard *pasteboard;
    if (!pasteboard)
        pasteboard = [NSPasteboard new];
    return pasteboard;
}

- (NSInteger)changeCount {
    return board().changes;
}

- (NSArray *)types {
    NSMutableArray *list = [NSMutableArray array];
    for (const auto &[name, bytes] : board().types)
        [list addObject:nsString(name)];
    return list;
}

- (NSInteger)clearContents {
    note("clear");
    const long changes = board().changes + 1;
    board() = {};
    return board().changes = changes;
}

- (BOOL)setString:(NSString *)text forType:(NSPasteboardType)type {
    if (!text) {
        complain("setString: nothing");
        return NO;
    }
    put("text", type, cppString(text));
    return YES;
}

- (BOOL)setData:(NSData *)data forType:(NSPasteboardType)type {
    put("data", type, std::string(static_cast<const char *>([data bytes]), [data length]));
    return YES;
}

- (BOOL)writeObjects:(NSArray *)objects {
    for (NSURL *url in objects) {
        note("write " + cppString([url absoluteString]));
        board().links.push_back(cppString([url absoluteString]));
    }
    return YES;
}

- (NSString *)stringForType:(NSPasteboardType)type {
    noteRead("text " + cppString(type));
    const std::string *bytes = find(type);
    return bytes ? nsString(*bytes) : nil;
}

- (NSData *)dataForType:(NSPasteboardType)type {
    noteRead("data " + cppString(type));
    const std::string *bytes = find(type);
    return bytes ? [NSData dataWithBytes:bytes->data() length:bytes->size()] : nil;
}

- (NSArray *)readObjectsForClasses:(NSArray *)classes options:(NSDictionary *)options {
    const bool filesOnly =
        [[options objectForKey:NSPasteboardURLReadingFileURLsOnlyKey] boolValue] && [options count] == 1;
    const bool links = [classes count] == 1 && [classes objectAtIndex:0] == [NSURL class];
    noteRead(std::string(links ? "links" : "other objects") + (filesOnly ? ", files only" : ""));
    NSMutableArray *list = [NSMutableArray array];
    for (std::size_t index = 0; index < board().links.size(); ++index) {
        NSURL *path = [NSURL URLWithString:nsString(board().links[index])];
        if (filesOnly && ![path isFileURL])
            continue;
        if (index < board().numberedLinks.size()) {
            FakeNumberedURL *numbered =
                [[[FakeNumberedURL alloc] initWithString:nsString(board().numberedLinks[index])] autorelease];
            numbered->path_ = [path retain];
            path = numbered;
        }
        [list addObject:path];
    }
    return list;
}
@end
