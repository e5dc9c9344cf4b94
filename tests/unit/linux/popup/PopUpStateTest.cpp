// SPDX-License-Identifier: MIT
#include "platform/linux/popup/PopUpState.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace tarnwick {
namespace {

using State = PopUpState;
using Event = PopUpEvent;

constexpr State states[] = {State::Ended, State::Open, State::Yielded, State::TakingBack, State::Settling};
constexpr Event events[] = {
    Event::Began, Event::Gave,         Event::ModifiersUp, Event::ModifierDown,
    Event::Took,  Event::CouldNotTake, Event::MenuClosed,  Event::EverythingGivenBack};

State afterAll(std::initializer_list<Event> happened)
{
    State state = State::Ended;
    for (const Event event : happened)
        state = stateAfter(state, event);
    return state;
}

TEST(PopUpState, whileAShortcutsModifierIsDown_shortcutsGoFirst)
{
    EXPECT_EQ(afterAll({Event::Began}), State::Open);
    EXPECT_EQ(afterAll({Event::Began, Event::Gave}), State::Yielded);
    EXPECT_EQ(afterAll({Event::Began, Event::Gave, Event::ModifiersUp}), State::TakingBack);
    EXPECT_EQ(afterAll({Event::Began, Event::Gave, Event::ModifiersUp, Event::Took}), State::Open);
}

TEST(PopUpState, aModifierThatIsDownAgain_putsTheTakingBackOff)
{
    EXPECT_EQ(afterAll({Event::Began, Event::Gave, Event::ModifiersUp, Event::ModifierDown}), State::Yielded);
}

TEST(PopUpState, whatCouldNotBeTakenBack_isTriedAgainAfterTheNextModifier)
{
    EXPECT_EQ(afterAll({Event::Began, Event::Gave, Event::ModifiersUp, Event::CouldNotTake}), State::Yielded);
    EXPECT_EQ(
        afterAll({Event::Began, Event::Gave, Event::ModifiersUp, Event::CouldNotTake, Event::ModifiersUp}),
        State::TakingBack);
}

TEST(PopUpState, whenTheMenuHasClosed_nothingButTheEndFollows)
{
    for (const State state : {State::Open, State::Yielded, State::TakingBack})
        EXPECT_EQ(stateAfter(state, Event::MenuClosed), State::Settling);
    for (const Event event : events)
        EXPECT_EQ(stateAfter(State::Settling, event),
                  event == Event::EverythingGivenBack ? State::Ended : State::Settling);
}

TEST(PopUpState, whenEverythingIsGivenBack_nothingButABeginningFollows)
{
    for (const State state : states)
        EXPECT_EQ(stateAfter(state, Event::EverythingGivenBack), State::Ended);
    for (const Event event : events)
        EXPECT_EQ(stateAfter(State::Ended, event), event == Event::Began ? State::Open : State::Ended);
}

} // namespace
} // namespace tarnwick
