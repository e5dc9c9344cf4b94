// SPDX-License-Identifier: MIT
#pragma once

#include "app/AppDelegate.h"

namespace tarnwick {

/// The objects that the program begins with, made and connected: the delegate, the mouse trigger, which taps
/// from then on, and the about panel. The delegate is the application's for as long as this lives. GUI thread
/// only.
class MainInterface
{
public:
    explicit MainInterface(AppDelegate::MakePreferences makePreferences);
    ~MainInterface();
    MainInterface(const MainInterface&) = delete;
    MainInterface& operator=(const MainInterface&) = delete;

    /// The rest of start-up, before the event loop or inside it. Stops half-way when the user has asked to
    /// end meanwhile.
    void finishLaunching();

private:
    AppDelegate _delegate;
};

} // namespace tarnwick
