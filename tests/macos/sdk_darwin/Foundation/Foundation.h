// SPDX-License-Identifier: MIT
// What Pimloft uses of this framework, declared from its public documentation. For the link check only: the
// tests use GNUstep's, and a build on a Mac the system's own headers.
#pragma once

#import <objc/NSObject.h>
#import <objc/objc.h>

#include <CoreGraphics/CoreGraphics.h>

typedef long NSInteger;
typedef unsigned long NSUInteger;
typedef CGPoint NSPoint;
typedef CGSize NSSize;
typedef CGRect NSRect;
typedef NSUInteger NSStringEncoding;
typedef NSUInteger NSKeyValueObservingOptions;
enum : NSStringEncoding { NSUTF8StringEncoding = 4 };

extern "C" {
extern const NSRect NSZeroRect;
extern NSString *const NSAppleScriptErrorMessage;
}

static inline NSRect NSMakeRect(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    NSRect rect = {{x, y}, {width, height}};
    return rect;
}

@class NSDictionary, NSOperationQueue;

typedef struct {
    unsigned long state;
    id __unsafe_unretained *itemsPtr;
    unsigned long *mutationsPtr;
    unsigned long extra[5];
} NSFastEnumerationState;

@interface NSObject (KeyValueObserving)
- (void)addObserver:(NSObject *)observer
         forKeyPath:(NSString *)path
            options:(NSKeyValueObservingOptions)options
            context:(void *)context;
- (void)removeObserver:(NSObject *)observer forKeyPath:(NSString *)path;
@end

@interface NSString : NSObject
- (instancetype)initWithBytes:(const void *)bytes
                       length:(NSUInteger)length
                     encoding:(NSStringEncoding)encoding;
- (NSUInteger)lengthOfBytesUsingEncoding:(NSStringEncoding)encoding;
- (const char *)UTF8String;
- (BOOL)isEqualToString:(NSString *)other;
@end

@interface NSNumber : NSObject
+ (NSNumber *)numberWithBool:(BOOL)value;
- (unsigned int)unsignedIntValue;
@end

@interface NSData : NSObject
+ (instancetype)dataWithBytes:(const void *)bytes length:(NSUInteger)length;
- (const void *)bytes;
- (NSUInteger)length;
@end

@interface NSURL : NSObject
+ (instancetype)URLWithString:(NSString *)text;
- (NSString *)absoluteString;
- (NSURL *)filePathURL;
@end

@interface NSArray : NSObject
+ (instancetype)arrayWithObject:(id)object;
+ (instancetype)arrayWithObjects:(id)first, ...;
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState *)state
                                  objects:(id __unsafe_unretained[])buffer
                                    count:(NSUInteger)count;
@end

@interface NSMutableArray : NSArray
+ (instancetype)array;
- (void)addObject:(id)object;
@end

@interface NSDictionary : NSObject
+ (instancetype)dictionaryWithObject:(id)object forKey:(id)key;
- (id)objectForKey:(id)key;
@end

@interface NSError : NSObject
- (NSInteger)code;
- (NSString *)localizedDescription;
@end

@interface NSNotification : NSObject
@end

@interface NSNotificationCenter : NSObject
+ (NSNotificationCenter *)defaultCenter;
- (id)addObserverForName:(NSString *)name
                  object:(id)object
                   queue:(NSOperationQueue *)queue
              usingBlock:(void (^)(NSNotification *notice))block;
- (void)removeObserver:(id)observer;
@end

@interface NSAppleEventDescriptor : NSObject
- (NSInteger)numberOfItems;
- (NSAppleEventDescriptor *)descriptorAtIndex:(NSInteger)index;
- (NSString *)stringValue;
@end

@interface NSAppleScript : NSObject
- (instancetype)initWithSource:(NSString *)source;
- (NSAppleEventDescriptor *)executeAndReturnError:(NSDictionary **)error;
@end
