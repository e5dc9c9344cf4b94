// SPDX-License-Identifier: MIT
#include "platform/linux/elements/AtspiAccessibility.h"

#include "platform/linux/elements/ApplicationElement.h"
#include "platform/linux/elements/SystemWideElement.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

/// Null for an empty handle and for another adapter's.
const LinuxElement* elementOf(const UIElementRef& reference)
{
    return dynamic_cast<const LinuxElement*>(reference.get());
}

} // namespace

bool AtspiAccessibility::apiEnabled()
{
    return _reading->tree.access.open();
}

bool AtspiAccessibility::isProcessTrusted()
{
    return _reading->tree.access.granted();
}

UIElementRef AtspiAccessibility::createSystemWide()
{
    return UIElementRef(std::make_shared<const SystemWideElement>(*_reading));
}

UIElementRef AtspiAccessibility::createApplication(qint64 processIdentifier)
{
    return UIElementRef(std::make_shared<const ApplicationElement>(*_reading, processIdentifier));
}

std::optional<qint64> AtspiAccessibility::getPid(const UIElementRef& element)
{
    const auto* known = elementOf(element);
    return known ? known->processIdentifier() : std::nullopt;
}

std::optional<QStringList> AtspiAccessibility::copyAttributeNames(const UIElementRef& element)
{
    const auto* known = elementOf(element);
    return known ? std::optional(known->attributeNames()) : std::nullopt;
}

std::optional<QVariant> AtspiAccessibility::copyAttributeValue(const UIElementRef& element,
                                                               const QString& attribute)
{
    const auto* known = elementOf(element);
    return known ? known->value(attribute) : std::nullopt;
}

std::optional<int> AtspiAccessibility::getAttributeValueCount(const UIElementRef& element,
                                                              const QString& attribute)
{
    const auto value = copyAttributeValue(element, attribute);
    if (!value || value->metaType() != QMetaType::fromType<QVariantList>())
        return std::nullopt;
    return static_cast<int>(value->toList().size());
}

std::optional<bool> AtspiAccessibility::isAttributeSettable(const UIElementRef& element,
                                                            const QString& attribute)
{
    const auto* known = elementOf(element);
    return known ? std::optional(known->isSettable(attribute)) : std::nullopt;
}

bool AtspiAccessibility::setAttributeValue(const UIElementRef& element, const QString& attribute,
                                           const QVariant& value)
{
    const auto* known = elementOf(element);
    return known && known->setValue(attribute, value);
}

std::optional<QStringList> AtspiAccessibility::copyActionNames(const UIElementRef& element)
{
    const auto* known = elementOf(element);
    return known ? std::optional(known->actionNames()) : std::nullopt;
}

std::optional<QString> AtspiAccessibility::copyActionDescription(const UIElementRef& element,
                                                                 const QString& action)
{
    const auto* known = elementOf(element);
    if (!known || !known->actionNames().contains(action))
        return std::nullopt;
    return u"press"_s;
}

bool AtspiAccessibility::performAction(const UIElementRef& element, const QString& action)
{
    const auto* known = elementOf(element);
    return known && known->perform(action);
}

} // namespace tarnwick
