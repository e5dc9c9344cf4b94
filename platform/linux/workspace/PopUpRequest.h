// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace tarnwick {

class LinuxWorkspace;

/// The request of another program to open the menu at the pointer. GUI thread only.
class PopUpRequest
{
public:
    /// `workspace` must outlive this.
    explicit PopUpRequest(LinuxWorkspace& workspace) : _workspace(workspace) {}

    /// Has the front application announced first, when it is another one, then calls `popUp`, which returns
    /// when the menu has closed. While a menu is open the request is dropped; over a window that the X server
    /// does not know, where no key reaches the menu, it closes the menu instead.
    void carryOut(const std::function<void()>& popUp);

private:
    void _popUp(const std::function<void()>& popUp);

    LinuxWorkspace& _workspace;
    bool _busy = false;
};

} // namespace tarnwick
