// SPDX-License-Identifier: MIT
#include "platform/macos/login/AppService.h"

#import <Foundation/Foundation.h>

/// The few messages of the service that the application is registered with; its class is looked up when it is
/// needed.
@protocol TWAppService
+ (id<TWAppService>)mainAppService;
- (NSInteger)status;
- (BOOL)registerAndReturnError:(NSError**)error;
- (BOOL)unregisterAndReturnError:(NSError**)error;
@end

namespace tarnwick {
namespace {

Class<TWAppService> serviceClass()
{
    return static_cast<Class<TWAppService>>(NSClassFromString(@"SMAppService"));
}

} // namespace

bool hasAppService()
{
    return serviceClass() != nil;
}

AppServiceStatus appServiceStatus()
{
    return static_cast<AppServiceStatus>([[serviceClass() mainAppService] status]);
}

void registerAppService()
{
    [[serviceClass() mainAppService] registerAndReturnError:nullptr];
}

void unregisterAppService()
{
    [[serviceClass() mainAppService] unregisterAndReturnError:nullptr];
}

} // namespace tarnwick
