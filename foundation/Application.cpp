// SPDX-License-Identifier: MIT
#include "foundation/Application.h"

#include "foundation/SharedPort.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

Application& Application::shared()
{
    return SharedPort<Application>::get();
}

void Application::setShared(Application* application)
{
    SharedPort<Application>::set(application);
}

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
