// SPDX-License-Identifier: MIT
#pragma once

#include "tests/fakes/FakeAlerts.h"
#include "tests/fakes/FakeApplication.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeDefaultsStore.h"
#include "tests/fakes/FakeEventSource.h"
#include "tests/fakes/FakeFonts.h"
#include "tests/fakes/FakeKeyboardLayout.h"
#include "tests/fakes/FakeSymbolicHotKeys.h"

#include <gtest/gtest.h>

namespace tarnwick {

/// Everything around the recorder, faked.
class ShortcutFixture : public ::testing::Test
{
protected:
    ShortcutFixture()
    {
        Application::setShared(&application);
        Alerts::setShared(&alerts);
        Clock::setShared(&clock);
        DefaultsStore::setShared(&store);
        EventSource::setShared(&events);
        Fonts::setShared(&fonts);
        KeyboardLayout::setShared(&keyboard());
        SymbolicHotKeys::setShared(&hotKeys);
        keyboard().reset();
    }
    ~ShortcutFixture() override
    {
        Application::setShared(nullptr);
        Alerts::setShared(nullptr);
        Clock::setShared(nullptr);
        DefaultsStore::setShared(nullptr);
        EventSource::setShared(nullptr);
        Fonts::setShared(nullptr);
        SymbolicHotKeys::setShared(nullptr);
    }
    Q_DISABLE_COPY_MOVE(ShortcutFixture)

    /// One for the whole program: the key-code transformer follows the first one that it meets.
    static FakeKeyboardLayout& keyboard()
    {
        static FakeKeyboardLayout layout;
        return layout;
    }

    FakeApplication application;
    FakeAlerts alerts;
    FakeClock clock;
    FakeDefaultsStore store;
    FakeEventSource events;
    FakeFonts fonts;
    FakeSymbolicHotKeys hotKeys;
};

} // namespace tarnwick
