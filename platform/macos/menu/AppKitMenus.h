// SPDX-License-Identifier: MIT
#pragma once

#include "platform/macos/menu/NativeMenus.h"

namespace tarnwick {

/// Pop-ups as AppKit shows them.
class AppKitMenus final : public NativeMenus
{
public:
    void popUp(const std::shared_ptr<Menu>& menu, const std::shared_ptr<MenuItem>& item, QPointF location,
               const Chosen& chosen) override;
    void cancel() override;

private:
    void* _shown = nullptr; ///< the NSMenu that is open, not owned
};

} // namespace tarnwick
