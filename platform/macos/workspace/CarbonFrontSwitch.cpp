// SPDX-License-Identifier: MIT
#include "platform/macos/workspace/CarbonFrontSwitch.h"

#include "platform/qt/menu/MenuTracking.h"

#include <Carbon/Carbon.h>
#include <utility>

namespace tarnwick {

static_assert(kEventClassApplication == 0x6170706C && kEventAppFrontSwitched == 7); // "appl"

bool CarbonFrontSwitch::install(std::function<void()> switched)
{
    const EventTypeSpec type{kEventClassApplication, kEventAppFrontSwitched};
    const auto handler = [](EventHandlerCallRef, EventRef, void* userData) -> OSStatus {
        static_cast<CarbonFrontSwitch*>(userData)->_callback();
        return noErr;
    };
    if (InstallEventHandler(GetApplicationEventTarget(), handler, 1, &type, this, nullptr) != noErr)
        return false;
    _callback = std::move(switched);
    return true;
}

void CarbonFrontSwitch::applicationActivated()
{
    MenuTracking::shared().cancel();
}

} // namespace tarnwick
