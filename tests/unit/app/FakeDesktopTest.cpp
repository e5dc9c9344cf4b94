// SPDX-License-Identifier: MIT
#include "tests/fakes/FakeDesktop.h"

#include <gtest/gtest.h>

#include <memory>

using namespace tarnwick;

TEST(FakeDesktop, isEveryPort_forAsLongAsItLives)
{
    auto desktop = std::make_unique<FakeDesktop>();
    EXPECT_EQ(Accessibility::sharedOrNull(), &desktop->accessibility);
    EXPECT_EQ(Alerts::sharedOrNull(), &desktop->alerts);
    EXPECT_EQ(Application::sharedOrNull(), &desktop->application);
    EXPECT_EQ(Clock::sharedOrNull(), &desktop->clock);
    EXPECT_EQ(DefaultsStore::sharedOrNull(), &desktop->store);
    EXPECT_EQ(EventSource::sharedOrNull(), &desktop->events);
    EXPECT_EQ(EventTaps::sharedOrNull(), &desktop->taps);
    EXPECT_EQ(Fonts::sharedOrNull(), &desktop->fonts);
    EXPECT_EQ(HotKeys::sharedOrNull(), &desktop->hotKeys);
    EXPECT_EQ(KeyboardLayout::sharedOrNull(), &FakeDesktop::keyboard());
    EXPECT_EQ(LoginItems::sharedOrNull(), &desktop->loginItems);
    EXPECT_EQ(MenuPresenter::sharedOrNull(), &desktop->presenter);
    EXPECT_EQ(Screens::sharedOrNull(), &desktop->screens);
    EXPECT_EQ(StatusBar::sharedOrNull(), &desktop->statusBar);
    EXPECT_EQ(SymbolicHotKeys::sharedOrNull(), &desktop->symbolicHotKeys);
    EXPECT_EQ(Workspace::sharedOrNull(), &desktop->workspace);
    desktop.reset();
    EXPECT_EQ(Accessibility::sharedOrNull(), nullptr);
    EXPECT_EQ(KeyboardLayout::sharedOrNull(), nullptr);
    EXPECT_EQ(Workspace::sharedOrNull(), nullptr);
}
