// SPDX-License-Identifier: MIT
#include "app/Inspection.h"

namespace tarnwick {

void Inspection::makeShared() const
{
    Application::setShared(application.get());
    Clock::setShared(clock.get());
    Fonts::setShared(fonts.get());
    Screens::setShared(screens.get());
    Accessibility::setShared(accessibility.get());
    Workspace::setShared(workspace.get());
}

} // namespace tarnwick
