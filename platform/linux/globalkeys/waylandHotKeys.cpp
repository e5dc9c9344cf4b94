// SPDX-License-Identifier: MIT
#include "platform/linux/globalkeys/waylandHotKeys.h"

#include "platform/linux/globalkeys/ConfiguredHotKeys.h"
#include "platform/linux/globalkeys/KGlobalAccelHotKeys.h"
#include "platform/linux/globalkeys/PortalHotKeys.h"

#include <utility>

namespace tarnwick {

std::unique_ptr<GlobalHotKeys> waylandHotKeys(const QDBusConnection& bus, const QString& address,
                                              GlobalHotKeys::Session session)
{
    if (KGlobalAccelHotKeys::isOffered(bus))
        return std::make_unique<KGlobalAccelHotKeys>(bus, std::move(session));
    if (PortalHotKeys::isOffered(bus))
        return std::make_unique<PortalHotKeys>(address, std::move(session));
    return std::make_unique<ConfiguredHotKeys>(std::move(session));
}

} // namespace tarnwick
