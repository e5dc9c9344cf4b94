// SPDX-License-Identifier: MIT
#include "platform/linux/popup/PopUpState.h"

#include <algorithm>
#include <iterator>

namespace tarnwick {

namespace {

using State = PopUpState;
using Event = PopUpEvent;

struct Transition
{
    State from;
    Event event;
    State to;
};

// clang-format off
constexpr Transition Transitions[] = {
    {State::Ended,      Event::Began,               State::Open},

    {State::Open,       Event::Gave,                State::Yielded},
    {State::Open,       Event::MenuClosed,          State::Settling},
    {State::Open,       Event::EverythingGivenBack, State::Ended},

    {State::Yielded,    Event::ModifiersUp,         State::TakingBack},
    {State::Yielded,    Event::MenuClosed,          State::Settling},
    {State::Yielded,    Event::EverythingGivenBack, State::Ended},

    {State::TakingBack, Event::ModifierDown,        State::Yielded},
    {State::TakingBack, Event::Took,                State::Open},
    {State::TakingBack, Event::CouldNotTake,        State::Yielded},
    {State::TakingBack, Event::MenuClosed,          State::Settling},
    {State::TakingBack, Event::EverythingGivenBack, State::Ended},

    {State::Settling,   Event::EverythingGivenBack, State::Ended},
};
// clang-format on

} // namespace

PopUpState stateAfter(PopUpState state, PopUpEvent event)
{
    const auto* const transition = std::ranges::find_if(Transitions, [&](const Transition& candidate) {
        return candidate.from == state && candidate.event == event;
    });
    return transition == std::end(Transitions) ? state : transition->to;
}

} // namespace tarnwick
