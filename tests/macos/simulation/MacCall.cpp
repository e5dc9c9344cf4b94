// SPDX-License-Identifier: MIT
#include "tests/macos/simulation/MacCall.h"

#include "tests/macos/simulation/MacObject.h"
#include "tests/macos/simulation/SimulatedMac.h"

#include <utility>

namespace tarnwick {

MacCall::MacCall(QString function, const QVariantList& arguments)
    : _function(std::move(function)), _status(SimulatedMac::instance().record(_function, arguments))
{
}

QVariant MacCall::_describedAddress(const void* address)
{
    if (!address)
        return {};
    const MacObject* object = MacObjects::instance().at(address);
    return object ? object->described() : QVariant(true);
}

} // namespace tarnwick
