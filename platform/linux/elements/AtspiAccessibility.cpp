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

AtspiAccessibility::AtspiAccessibility()
    : _windows(X11Connection::shared()), _applications(_bus), _activeInTree(_applications, _budget),
      _access(_bus, _applications), _toolkits(_bus), _treeSource(_bus, _budget, _toolkits, _childrenJustTold),
      _exportsSource(_sessionBus, _budget),
      _treeBars(_bus, _applications, _toolkits, _windows, _budget, _childrenJustTold),
      _exportedBars(X11Connection::shared(), _exportsSource),
      _menuBars(_windows, {_treeBars, _treeSource, _exportedBars, _exportsSource, _ownSource}),
      _names(_bus, _applications, _windows, _budget), _context{_activeWindow, _windows,  _bus,
                                                               _budget,       _menuBars, _names}
{
}

bool AtspiAccessibility::apiEnabled()
{
    return _access.open();
}

bool AtspiAccessibility::isProcessTrusted()
{
    return _access.granted();
}

UIElementRef AtspiAccessibility::createSystemWide()
{
    return UIElementRef(std::make_shared<const SystemWideElement>(_context));
}

UIElementRef AtspiAccessibility::createApplication(qint64 processIdentifier)
{
    return UIElementRef(std::make_shared<const ApplicationElement>(_context, processIdentifier));
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
