// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace tarnwick {

class FrontApplication;
class SwitchAnnouncements;

/// The request of another program to open the menu at the pointer. GUI thread only.
class PopUpRequest
{
public:
    /// Makes what a menu over a native window needs beside it, for as long as the menu is open.
    using Backdrop = std::function<std::shared_ptr<void>()>;

    /// Both must outlive this. Without `backdrop` a native window is like any other.
    PopUpRequest(SwitchAnnouncements& announcements, const FrontApplication& front, Backdrop backdrop = {})
        : _announcements(announcements), _front(front), _backdrop(std::move(backdrop))
    {
    }

    /// Has the front application announced first, when it is another one, then calls `popUp`, which returns
    /// when the menu has closed. While a menu is open the request is dropped; beside a backdrop, where no key
    /// reaches the menu, it closes the menu instead.
    void carryOut(const std::function<void()>& popUp);

private:
    void _popUp(const std::function<void()>& popUp);

    SwitchAnnouncements& _announcements;
    const FrontApplication& _front;
    Backdrop _backdrop;
    bool _busy = false;
};

} // namespace tarnwick
