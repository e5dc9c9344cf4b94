// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Action.h"

#include <QString>

namespace tarnwick {

/// What a control does when it is used: its action, and who performs it. The target is not owned.
class ActionCell
{
public:
    [[nodiscard]] ActionTarget* target() const { return _target; }
    void setTarget(ActionTarget* target) { _target = target; }
    [[nodiscard]] const QString& action() const { return _action; }
    void setAction(const QString& action) { _action = action; }

private:
    ActionTarget* _target = nullptr;
    QString _action;
};

} // namespace tarnwick
