// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Action.h"
#include "foundation/Event.h"
#include "foundation/SharedPort.h"

#include <QString>

#include <memory>
#include <optional>

namespace tarnwick {

class ApplicationDelegate;
class Menu;

/// The running process as a desktop application. As an ActionTarget it responds to "terminate:". GUI thread
/// only.
class Application : public ActionTarget, public SharedPort<Application>
{
public:
    /// Asks the delegate and, unless it refuses, ends the event loop. During start-up nothing further is made
    /// after it returns: see terminating().
    virtual void terminate(ActionSender* sender) = 0;

    /// True once terminate() has been agreed to.
    [[nodiscard]] virtual bool terminating() const = 0;

    /// Makes this application the active one; with `ignoringOtherApps` even while another one is.
    virtual void activateIgnoringOtherApps(bool ignoringOtherApps) = 0;

    /// This application's own menu bar; null when it has none.
    [[nodiscard]] virtual std::shared_ptr<Menu> mainMenu() const = 0;

    /// Not owned; null before start-up.
    [[nodiscard]] virtual ApplicationDelegate* delegate() const = 0;
    virtual void setDelegate(ApplicationDelegate* delegate) = 0;

    /// The event that is being handled, or the last one; nothing before the first.
    [[nodiscard]] virtual std::optional<Event> currentEvent() const = 0;

    /// Performs `action` on `target`; with a null target, or one that does not respond, does nothing and
    /// gives false.
    virtual bool sendActionToFrom(const QString& action, ActionTarget* target, ActionSender* sender) = 0;

    /// The system's alert sound.
    virtual void beep() = 0;

    /// Absolute path of what the user starts: the bundle, or the program file where there are no bundles.
    [[nodiscard]] virtual QString bundlePath() const = 0;

    /// Path of a resource of the program, such as ("TarnwickMenuBarIcon", "png"); empty when it is missing.
    [[nodiscard]] virtual QString pathForResourceOfType(const QString& name, const QString& type) const = 0;

    [[nodiscard]] bool respondsTo(const QString& action) const override;
    void perform(const QString& action, ActionSender* sender) override;
};

} // namespace tarnwick
