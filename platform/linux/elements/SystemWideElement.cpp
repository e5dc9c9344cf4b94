// SPDX-License-Identifier: MIT
#include "platform/linux/elements/SystemWideElement.h"

#include "ax/Accessibility.h"
#include "platform/linux/elements/ApplicationElement.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

QStringList SystemWideElement::attributeNames() const
{
    return {AXRoleAttribute, u"AXFocusedApplication"_s};
}

std::optional<QVariant> SystemWideElement::value(const QString& attribute) const
{
    if (attribute == AXRoleAttribute)
        return u"AXSystemWide"_s;
    if (attribute != "AXFocusedApplication"_L1)
        return std::nullopt;
    const FrontWindow front = _reading.front->current();
    return QVariant::fromValue(
        UIElementRef(std::make_shared<const ApplicationElement>(_reading, front.processIdentifier)));
}

} // namespace tarnwick
