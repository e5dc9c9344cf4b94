// SPDX-License-Identifier: MIT
#include "platform/linux/elements/LinuxElement.h"

#include <typeinfo>

namespace tarnwick {

bool LinuxElement::isSettable(const QString& /*attribute*/) const
{
    return false;
}

bool LinuxElement::setValue(const QString& /*attribute*/, const QVariant& /*value*/) const
{
    return false;
}

bool LinuxElement::perform(const QString& /*action*/) const
{
    return false;
}

bool LinuxElement::isEqualTo(const UIElement& other) const
{
    const auto* element = dynamic_cast<const LinuxElement*>(&other);
    return element && typeid(*this) == typeid(*element) && identity() == element->identity();
}

} // namespace tarnwick
