// SPDX-License-Identifier: MIT
// What Pimloft uses of this framework, declared from its public documentation. For the tests and the link
// check only: a build on a Mac uses the system's own headers.
#pragma once

#import <Foundation/Foundation.h>

enum { kSMErrorJobNotFound = 6, kSMErrorAlreadyRegistered = 12 };

__attribute__((availability(macos, introduced = 13.0)))
@interface SMAppService : NSObject
+ (SMAppService *)mainAppService;
- (BOOL)registerAndReturnError:(NSError **)error;
- (BOOL)unregisterAndReturnError:(NSError **)error;
@end
