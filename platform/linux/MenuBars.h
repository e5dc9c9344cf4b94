// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/AtspiMenuBars.h"
#include "platform/linux/MenuSource.h"

namespace tarnwick {

struct FoundMenuBar
{
    MenuSource* source = nullptr;
    BusReference bar;

    explicit operator bool() const { return source != nullptr; }
};

/// What tells one menu bar from another: the bar itself, or the window where none has been found.
struct MenuBarOwner
{
    BusReference bar;
    xcb_window_t window = XCB_WINDOW_NONE;

    friend bool operator==(const MenuBarOwner&, const MenuBarOwner&) = default;
};

/// Where a window's menu bar is published. GUI thread only.
class MenuBars
{
public:
    /// All must outlive this. `own` is for the windows of this process.
    MenuBars(X11Windows& windows, AtspiMenuBars& inTree, MenuSource& tree, MenuSource& own)
        : _windows(windows), _inTree(inTree), _tree(tree), _own(own)
    {
    }

    /// False when the window has no menu bar that can be read.
    [[nodiscard]] FoundMenuBar of(const FrontWindow& front);
    /// Without a menu bar, the window that this one is transient for in the end.
    [[nodiscard]] MenuBarOwner ownerOf(const FrontWindow& front);

private:
    X11Windows& _windows;
    AtspiMenuBars& _inTree;
    MenuSource& _tree;
    MenuSource& _own;
};

} // namespace tarnwick
