// SPDX-License-Identifier: MIT
#include "platform/linux/elements/NativeWindowElement.h"

#include "ax/Accessibility.h"
#include "platform/linux/elements/ApplicationElement.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace tarnwick {

NativeWindowElement::NativeWindowElement(LinuxReading& reading, FrontWindow window)
    : _reading(reading), _window(std::move(window))
{
}

QByteArray NativeWindowElement::identity() const
{
    return _window.accessible.identity();
}

QStringList NativeWindowElement::attributeNames() const
{
    return {AXRoleAttribute, AXTitleAttribute, u"AXRoleDescription"_s, AXParentAttribute, u"AXMain"_s};
}

std::optional<QVariant> NativeWindowElement::value(const QString& attribute) const
{
    if (attribute == AXRoleAttribute)
        return u"AXWindow"_s;
    if (attribute == AXTitleAttribute)
        return _title();
    if (attribute == "AXRoleDescription"_L1)
        return u"window"_s;
    if (attribute == AXParentAttribute)
        return QVariant::fromValue(
            UIElementRef(std::make_shared<const ApplicationElement>(_reading, _window.processIdentifier)));
    if (attribute == "AXMain"_L1)
        return _reading.front->current() == _window;
    return std::nullopt;
}

std::optional<QVariant> NativeWindowElement::_title() const
{
    const ReadingBudget::Reading reading(_reading.budget);
    const auto name =
        _reading.tree.bus.facts(_window.accessible, {AtspiQuestion::Name}, reading.deadline()).name;
    return name ? std::optional<QVariant>(*name) : std::nullopt;
}

} // namespace tarnwick
