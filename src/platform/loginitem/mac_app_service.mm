// SPDX-License-Identifier: MIT
#include "platform/loginitem/mac_app_service.h"

#include "platform/mac/ns_text.h"

#import <ServiceManagement/ServiceManagement.h>

namespace pimloft {

namespace {

MacLoginAnswer answer(BOOL succeeded, NSError *error, NSInteger alreadySo) {
    if (succeeded)
        return {MacLoginAnswer::Outcome::done, {}};
    if ([error code] == alreadySo)
        return {MacLoginAnswer::Outcome::alreadySo, {}};
    return {MacLoginAnswer::Outcome::failed, plainText([error localizedDescription])};
}

}  // namespace

MacLoginAnswer registerMainApp() {
    @autoreleasepool {
        NSError *error = nil;
        const BOOL succeeded = [[SMAppService mainAppService] registerAndReturnError:&error];
        return answer(succeeded, error, kSMErrorAlreadyRegistered);
    }
}

MacLoginAnswer unregisterMainApp() {
    @autoreleasepool {
        NSError *error = nil;
        const BOOL succeeded = [[SMAppService mainAppService] unregisterAndReturnError:&error];
        return answer(succeeded, error, kSMErrorJobNotFound);
    }
}

}  // namespace pimloft
