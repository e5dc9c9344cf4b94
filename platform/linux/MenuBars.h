// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/AtspiMenuBars.h"
#include "platform/linux/MenuSource.h"

namespace tarnwick {

struct FoundMenuBar
{
    MenuSource* source = nullptr;
    BusReference bar;
    xcb_window_t owner = XCB_WINDOW_NONE; ///< none when it belongs to no window in particular

    explicit operator bool() const { return source != nullptr; }
};

/// What tells one menu bar from another: the window that has it, else the bar itself. Not the bar first:
/// which of two windows of the same title has it, is known a moment after the switch only.
struct MenuBarOwner
{
    xcb_window_t window = XCB_WINDOW_NONE;
    BusReference bar;

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
