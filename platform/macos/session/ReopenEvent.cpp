// SPDX-License-Identifier: MIT
#include "platform/macos/session/ReopenEvent.h"

#include <CoreServices/CoreServices.h>
#include <utility>

namespace tarnwick {

static_assert(kCoreEventClass == 0x61657674 && kAEReopenApplication == 0x72617070); // "aevt", "rapp"

bool ReopenEvent::install(std::function<bool()> reopened)
{
    _reopened = std::move(reopened);
    const auto handler = [](const AppleEvent*, AppleEvent*, SRefCon context) -> OSErr {
        const bool goOn = static_cast<ReopenEvent*>(context)->_reopened();
        return goOn ? OSErr(errAEEventNotHandled) : OSErr(noErr);
    };
    return AEInstallEventHandler(kCoreEventClass, kAEReopenApplication, handler, this, false) == noErr;
}

} // namespace tarnwick
