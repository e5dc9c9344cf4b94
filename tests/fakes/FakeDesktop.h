// SPDX-License-Identifier: MIT
#pragma once

#include "tests/fakes/FakeAccessibility.h"
#include "tests/fakes/FakeAlerts.h"
#include "tests/fakes/FakeApplication.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeDefaultsStore.h"
#include "tests/fakes/FakeEventSource.h"
#include "tests/fakes/FakeEventTaps.h"
#include "tests/fakes/FakeFonts.h"
#include "tests/fakes/FakeHotKeys.h"
#include "tests/fakes/FakeKeyboardLayout.h"
#include "tests/fakes/FakeLoginItems.h"
#include "tests/fakes/FakeMenuPresenter.h"
#include "tests/fakes/FakeScreens.h"
#include "tests/fakes/FakeStatusBar.h"
#include "tests/fakes/FakeSymbolicHotKeys.h"
#include "tests/fakes/FakeWorkspace.h"
#include "tests/fakes/SharedPorts.h"

namespace tarnwick {

/// A fake of every port, each the one that its port's shared() gives for as long as the desktop lives. As a
/// base of a fixture it outlives what the fixture makes. One that needs a port or two only has these and a
/// SharedPorts of its own.
class FakeDesktop
{
public:
    FakeAccessibility accessibility;
    FakeAlerts alerts;
    FakeApplication application;
    FakeClock clock;
    FakeDefaultsStore store;
    FakeEventSource events;
    FakeEventTaps taps;
    FakeFonts fonts;
    FakeHotKeys hotKeys;
    FakeLoginItems loginItems;
    FakeMenuPresenter presenter;
    FakeScreens screens;
    FakeStatusBar statusBar;
    FakeSymbolicHotKeys symbolicHotKeys;
    FakeWorkspace workspace;

    /// One for the whole program, as new for each desktop: the key-code transformer follows the first one
    /// that it meets.
    static FakeKeyboardLayout& keyboard()
    {
        static FakeKeyboardLayout layout;
        return layout;
    }

    FakeDesktop() { keyboard().reset(); }

private:
    SharedPorts _shared{accessibility, alerts,    application,     clock,      store,      events,
                        taps,          fonts,     hotKeys,         keyboard(), loginItems, presenter,
                        screens,       statusBar, symbolicHotKeys, workspace};
};

} // namespace tarnwick
