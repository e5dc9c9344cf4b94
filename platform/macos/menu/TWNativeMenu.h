// SPDX-License-Identifier: MIT
// For Objective-C++ only.
#pragma once

#include "platform/macos/menu/NativeMenus.h"

#import <AppKit/AppKit.h>
#include <functional>
#include <memory>

namespace tarnwick {

/// What the owner of a native menu is told.
struct NativeMenuOwner
{
    NativeMenus::Chosen chosen;
    std::function<void()> opened; ///< the outermost menu has opened; may be empty
    std::function<void()> closed; ///< the outermost menu has closed; may be empty
};

/// What a native menu shows at the moment.
struct ShownMenu;

} // namespace tarnwick

/// A native menu that shows a menu of the model, and its delegate: it fills itself just before it opens, as
/// the model's delegate wants it. Holds what it shows.
@interface TWNativeMenu : NSObject <NSMenuDelegate> {
@private
    tarnwick::ShownMenu* _shown; // a plain pointer: not every runtime constructs members
}

- (instancetype)initWithMenu:(const std::shared_ptr<tarnwick::Menu>&)menu
                       owner:(const std::shared_ptr<tarnwick::NativeMenuOwner>&)owner;

/// Not retained for the caller.
- (NSMenu*)menu;

/// The native item that shows `item` at the moment; nil when it is not shown.
- (NSMenuItem*)nativeItemFor:(const std::shared_ptr<tarnwick::MenuItem>&)item;

@end
