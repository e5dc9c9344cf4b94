// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick {

/// Anything that can be named as the sender of an action: a menu item, a control, the application delegate.
/// Carries nothing; a target casts it to the kind of sender it expects.
class ActionSender
{
public:
    virtual ~ActionSender() = default;

protected:
    ActionSender() = default;
    ActionSender(const ActionSender&) = default;
    ActionSender& operator=(const ActionSender&) = default;
    ActionSender(ActionSender&&) = default;
    ActionSender& operator=(ActionSender&&) = default;
};

/// The receiver of actions. A menu asks its items' targets again each time it enables its items, so a target
/// is an object with a question and an answer, never a bare function. GUI thread only.
class ActionTarget
{
public:
    virtual ~ActionTarget() = default;

    /// Whether perform() would do something for `action`.
    [[nodiscard]] virtual bool respondsTo(const QString& action) const = 0;

    /// Carries `action` out. An action that it does not respond to is ignored. `sender` may be null and is
    /// not kept.
    virtual void perform(const QString& action, ActionSender* sender) = 0;

protected:
    ActionTarget() = default;
    ActionTarget(const ActionTarget&) = default;
    ActionTarget& operator=(const ActionTarget&) = default;
    ActionTarget(ActionTarget&&) = default;
    ActionTarget& operator=(ActionTarget&&) = default;
};

} // namespace tarnwick
