// SPDX-License-Identifier: MIT
#include "platform/macos/menu/AppKitMenus.h"

#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "platform/macos/menu/TWNativeMenu.h"

namespace tarnwick {

void AppKitMenus::popUp(const std::shared_ptr<Menu>& menu, const std::shared_ptr<MenuItem>& item,
                        QPointF location, const Chosen& chosen)
{
    const auto owner = std::make_shared<NativeMenuOwner>(NativeMenuOwner{chosen, {}, {}});
    // Autoreleased: the action of the chosen item may be sent after the menu has closed.
    TWNativeMenu* shown = [[[TWNativeMenu alloc] initWithMenu:menu owner:owner] autorelease];
    _shown = [shown menu];
    [[shown menu] popUpMenuPositioningItem:[shown nativeItemFor:item]
                                atLocation:NSMakePoint(location.x(), location.y())
                                    inView:nil];
    _shown = nullptr;
}

void AppKitMenus::cancel()
{
    [static_cast<NSMenu*>(_shown) cancelTracking];
}

} // namespace tarnwick
