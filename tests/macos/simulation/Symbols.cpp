// SPDX-License-Identifier: MIT
// Simulated look-up of what not every version of the system has.
#include "tests/macos/simulation/Symbols.h"

#include "platform/macos/system/SystemSymbol.h"
#include "tests/macos/simulation/MacCall.h"
#include "tests/macos/simulation/SimulatedMac.h"

namespace tarnwick {

void* systemSymbol(const char* name)
{
    const QString symbol = QString::fromLatin1(name);
    const MacCall call("dlsym", QVariant(symbol));
    if (call.fails() || SimulatedMac::instance().isMissing(symbol))
        return nullptr;
    void* const found = accessibilitySymbol(symbol);
    return found ? found : fileListSymbol(symbol);
}

} // namespace tarnwick
