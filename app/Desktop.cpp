// SPDX-License-Identifier: MIT
#include "app/Desktop.h"

namespace tarnwick {

void Desktop::makeShared() const
{
    Application::setShared(application.get());
    Clock::setShared(clock.get());
    DefaultsStore::setShared(defaultsStore.get());
    Fonts::setShared(fonts.get());
    Screens::setShared(screens.get());
    Alerts::setShared(alerts.get());
    EventSource::setShared(eventSource.get());
    Accessibility::setShared(accessibility.get());
    Workspace::setShared(workspace.get());
    LoginItems::setShared(loginItems.get());
    EventTaps::setShared(eventTaps.get());
    HotKeys::setShared(hotKeys.get());
    KeyboardLayout::setShared(keyboardLayout.get());
    KeyNames::setShared(keyNames.get());
    SymbolicHotKeys::setShared(symbolicHotKeys.get());
    MenuPresenter::setShared(menuPresenter.get());
    StatusBar::setShared(statusBar.get());
    TriggerAdvice::setShared(triggerAdvice);
}

} // namespace tarnwick
