// SPDX-License-Identifier: MIT
// Simulated: what Service Management alone can do.
#include "platform/macos/login/AppService.h"

#include "tests/macos/simulation/MacCall.h"
#include "tests/macos/simulation/SimulatedMac.h"

namespace tarnwick {

bool hasAppService()
{
    const MacCall call("SMAppService");
    return !call.fails() && SimulatedMac::instance().appServiceStatus.has_value();
}

AppServiceStatus appServiceStatus()
{
    const MacCall call("status");
    return static_cast<AppServiceStatus>(
        call.fails() ? 0 : SimulatedMac::instance().appServiceStatus.value_or(0));
}

void registerAppService()
{
    const MacCall call("registerAndReturnError");
    if (!call.fails())
        SimulatedMac::instance().appServiceStatus = 1;
}

void unregisterAppService()
{
    const MacCall call("unregisterAndReturnError");
    if (!call.fails())
        SimulatedMac::instance().appServiceStatus = 0;
}

} // namespace tarnwick
