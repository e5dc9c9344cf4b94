// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace tarnwick {

class FrontApplication;
class SwitchAnnouncements;

/// The request of another program to open the menu at the pointer. GUI thread only.
class PopUpRequest
{
public:
    /// Both must outlive this.
    PopUpRequest(SwitchAnnouncements& announcements, const FrontApplication& front)
        : _announcements(announcements), _front(front)
    {
    }

    /// Has the front application announced first, when it is another one, then calls `popUp`, which returns
    /// when the menu has closed. While a menu is open the request is dropped; over a native window, where no
    /// key reaches the menu, it closes the menu instead.
    void carryOut(const std::function<void()>& popUp);

private:
    void _popUp(const std::function<void()>& popUp);

    SwitchAnnouncements& _announcements;
    const FrontApplication& _front;
    bool _busy = false;
};

} // namespace tarnwick
