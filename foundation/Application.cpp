// SPDX-License-Identifier: MIT
#include "foundation/Application.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

bool Application::respondsTo(const QString& action) const
{
    return action == u"terminate:"_s;
}

void Application::perform(const QString& action, ActionSender* sender)
{
    if (respondsTo(action))
        terminate(sender);
}

} // namespace tarnwick
