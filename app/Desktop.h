// SPDX-License-Identifier: MIT
#pragma once

#include "app/HotKeys.h"
#include "app/StatusBar.h"
#include "ax/Accessibility.h"
#include "foundation/Alerts.h"
#include "foundation/Application.h"
#include "foundation/Clock.h"
#include "foundation/DefaultsStore.h"
#include "foundation/EventSource.h"
#include "foundation/Fonts.h"
#include "foundation/Screens.h"
#include "foundation/Workspace.h"
#include "menu/MenuPresenter.h"
#include "mouse/EventTaps.h"
#include "prefs/LoginItems.h"
#include "prefs/TriggerAdvice.h"
#include "shortcut/KeyNames.h"
#include "shortcut/KeyboardLayout.h"
#include "shortcut/SymbolicHotKeys.h"

#include <QString>

#include <memory>

namespace tarnwick {

/// What runs on one desktop only: the event loop around the adapters, from start-up to the exit status.
class DesktopSession
{
public:
    virtual ~DesktopSession() = default;

    /// True when Tarnwick runs in this session already: it was asked to show its preferences, and this
    /// process has nothing more to do.
    [[nodiscard]] virtual bool handedOverToRunningInstance() = 0;

    /// Runs `launch` once, before the event loop or inside it, and then the loop with everything else. Gives
    /// the exit status.
    virtual int run(const std::function<void()>& launch) = 0;
};

/// The adapters of all ports of one desktop. Destroyed in the opposite order.
struct Desktop
{
    std::unique_ptr<DesktopSession> session;
    std::unique_ptr<Application> application;
    std::unique_ptr<Clock> clock;
    std::unique_ptr<DefaultsStore> defaultsStore;
    std::unique_ptr<Fonts> fonts;
    std::unique_ptr<Screens> screens;
    std::unique_ptr<Alerts> alerts;
    std::unique_ptr<EventSource> eventSource;
    std::unique_ptr<Accessibility> accessibility;
    std::unique_ptr<Workspace> workspace;
    std::unique_ptr<LoginItems> loginItems;
    std::unique_ptr<EventTaps> eventTaps;
    std::unique_ptr<HotKeys> hotKeys;
    std::unique_ptr<KeyboardLayout> keyboardLayout;
    std::unique_ptr<KeyNames> keyNames; ///< null where people read the glyphs
    std::unique_ptr<SymbolicHotKeys> symbolicHotKeys;
    std::unique_ptr<MenuPresenter> menuPresenter;
    std::unique_ptr<StatusBar> statusBar;
    /// One of those above; null on a desktop where there is nothing to say.
    TriggerAdvice* triggerAdvice = nullptr;

    /// Makes each adapter the one that its port's shared() gives.
    void makeShared() const;
};

/// Opens the desktop that the program was built for. The arguments are main's and must outlive it.
[[nodiscard]] Desktop openDesktop(int& argc, char** argv);

/// A sentence for reports: with what this program was built that decides on which desktops it runs, and on
/// what it would run now. Not translated; empty where there is nothing to tell. Needs no display.
[[nodiscard]] QString desktopOfThisBuild();

} // namespace tarnwick
