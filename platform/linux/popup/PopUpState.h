// SPDX-License-Identifier: MIT
#pragma once

namespace tarnwick {

/// Whose the keys are while a pop-up is shown.
enum class PopUpState {
    Ended,      ///< everybody's: there is no pop-up
    Open,       ///< the menu's
    Yielded,    ///< the menu's, but shortcuts of the window manager go first: one of their modifiers is down
    TakingBack, ///< as before, though the modifiers are up: the shortcut may be about to take effect
    Settling,   ///< nobody's until they are up: the menu has closed
};

enum class PopUpEvent {
    Began,        ///< keyboard and, unless a button has it, pointer are ours
    Gave,         ///< a shortcut's modifier went down, and the keyboard was yielded for it
    ModifiersUp,  ///< no shortcut's modifier is down any more
    ModifierDown, ///< one is down again
    Took,         ///< the keyboard is ours alone again
    CouldNotTake, ///< it cannot be: another window is in front, or somebody has kept the keyboard for too
                  ///< long
    MenuClosed,
    EverythingGivenBack,
};

/// The state after the event; the same one where the event means nothing.
[[nodiscard]] PopUpState stateAfter(PopUpState state, PopUpEvent event);

} // namespace tarnwick
