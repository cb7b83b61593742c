// SPDX-License-Identifier: MIT
#import "fake_ns.h"

#import <ServiceManagement/ServiceManagement.h>

using namespace pimloft::test::mac;

namespace pimloft::test::mac {

Scripts &scripts() {
    static Scripts scripts;
    return scripts;
}

LoginItem &loginItem() {
    static LoginItem item;
    return item;
}

void resetScripts() {
    scripts() = {};
    loginItem() = {};
}

}  // namespace pimloft::test::mac

extern "C" {
NSString *const NSAppleScriptErrorMessage = @"NSAppleScriptErrorMessage";
}

@interface FakeDescriptor : NSAppleEventDescriptor {
@public
    NSArray *items_;  ///< nothing for what is no list
    NSString *text_;
}
@end

namespace {

NSAppleEventDescriptor *makeText(NSString *text) {
    FakeDescriptor *object = [[FakeDescriptor new] autorelease];
    object->text_ = [text retain];
    return object;
}

NSAppleEventDescriptor *makeList(const std::vector<std::optional<std::string>> &items) {
    NSMutableArray *list = [NSMutableArray array];
    for (const auto &item : items)
        [list addObject:makeText(nsString(item))];
    FakeDescriptor *object = [[FakeDescriptor new] autorelease];
    object->items_ = [list retain];
    return object;
}

}  // namespace

@implementation NSAppleEventDescriptor (Answers)
- (NSInteger)numberOfItems {
    return 0;
}

- (NSAppleEventDescriptor *)descriptorAtIndex:(NSInteger)index {
    (void)index;
    return nil;
}

- (NSString *)stringValue {
    return nil;
}
@end

@implementation FakeDescriptor
- (NSInteger)numberOfItems {
    return NSInteger([items_ count]);
}

- (NSAppleEventDescriptor *)descriptorAtIndex:(NSInteger)index {
    if (index >= 1 && index <= [self numberOfItems])
        return [items_ objectAtIndex:NSUInteger(index - 1)];
    complain("descriptorAtIndex: counts from 1");
    return nil;
}

- (NSString *)stringValue {
    return text_;
}

- (void)dealloc {
    [items_ release];
    [text_ release];
    [super dealloc];
}
@end

/// What +alloc of the class answers, which GNUstep has empty.
@interface FakeScript : NSAppleScript {
@public
    NSString *source_;
}
@end

@implementation FakeScript
- (instancetype)initWithSource:(NSString *)source {
    self = [super init];
    if (!scripts().canBeMade) {
        [self release];
        return nil;
    }
    source_ = [source retain];
    return self;
}

- (NSAppleEventDescriptor *)executeAndReturnError:(NSDictionary **)error {
    note("run " + cppString(source_));
    const ScriptAnswer &answer = scripts().answers[cppString(source_)];
    if (answer.list)
        return makeList(*answer.list);
    if (!answer.error)
        return makeText(nsString(answer.text));
    if (error && !answer.error->empty())
        *error = [NSDictionary dictionaryWithObject:nsString(*answer.error) forKey:NSAppleScriptErrorMessage];
    return nil;
}

- (void)dealloc {
    [source_ release];
    [super dealloc];
}
@end

@implementation NSAppleScript (Running)
+ (instancetype)alloc {
    Class made = self == [NSAppleScript class] ? [FakeScript class] : self;
    return (id)NSAllocateObject(made, 0, NSDefaultMallocZone());
}

- (instancetype)initWithSource:(NSString *)source {
    (void)source;
    return [self init];
}

- (NSAppleEventDescriptor *)executeAndReturnError:(NSDictionary **)error {
    (void)error;
    return nil;
}
@end

@implementation SMAppService
+ (SMAppService *)mainAppService {
    static SMAppService *service;
    if (!service)
        service = [SMAppService new];
    return service;
}

static BOOL fail(NSError **error, NSInteger code, NSString *text) {
    if (error)
        *error = [NSError errorWithDomain:@"SMAppServiceErrorDomain"
                                     code:code
                                 userInfo:[NSDictionary dictionaryWithObject:text
                                                                      forKey:NSLocalizedDescriptionKey]];
    return NO;
}

- (BOOL)change:(bool)toRegistered code:(NSInteger)alreadySo error:(NSError **)error {
    LoginItem &item = loginItem();
    note(toRegistered ? "register" : "unregister");
    if (item.refusal)
        return fail(error, 1, nsString(*item.refusal));
    if (item.isRegistered == toRegistered)
        return fail(error, alreadySo, @"It is so already");
    item.isRegistered = toRegistered;
    return YES;
}

- (BOOL)registerAndReturnError:(NSError **)error {
    return [self change:true code:kSMErrorAlreadyRegistered error:error];
}

- (BOOL)unregisterAndReturnError:(NSError **)error {
    return [self change:false code:kSMErrorJobNotFound error:error];
}
@end
