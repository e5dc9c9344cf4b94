// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/FrontHint.h"

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
    /// What one way of showing the menu needs beside it; each may be missing.
    struct Surroundings
    {
        /// Makes what a menu over a native window needs, for as long as the menu is open. Without it a native
        /// window is like any other. `pointerIsTold`: its place need not be found out.
        std::function<std::shared_ptr<void>(bool pointerIsTold)> backdrop;
        /// From now on the pointer is at this place, or again where it is found to be.
        std::function<void(std::optional<QPoint>)> setPointer;
        /// A menu is about to be asked for: gets ready for it, until what is given goes.
        std::function<std::shared_ptr<void>()> expectMenu;
    };

    /// Both must outlive this.
    PopUpRequest(SwitchAnnouncements& announcements, const FrontApplication& front,
                 Surroundings surroundings = {})
        : _announcements(announcements), _front(front), _surroundings(std::move(surroundings))
    {
    }

    /// Has the front application announced first, when it is another one by the hint or without, then calls
    /// `popUp`, which returns when the menu has closed. While a menu is open the request is dropped; beside a
    /// backdrop, where no key reaches the menu, it closes the menu instead.
    void carryOut(const FrontHint& hint, const std::function<void()>& popUp);

private:
    void _popUp(std::optional<QPoint> pointer, const std::function<void()>& popUp);
    void _popUpOverNative(bool pointerIsTold, const std::function<void()>& popUp);

    SwitchAnnouncements& _announcements;
    const FrontApplication& _front;
    Surroundings _surroundings;
    bool _busy = false;
};

} // namespace tarnwick
