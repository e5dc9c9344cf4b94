// SPDX-License-Identifier: MIT
#include "tools/ChosenApplication.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

UIElementRef ChosenApplicationAccessibility::createSystemWide()
{
    if (!_systemWide)
        _systemWide = _real.createSystemWide();
    return _systemWide;
}

std::optional<QStringList> ChosenApplicationAccessibility::copyAttributeNames(const UIElementRef& element)
{
    return _real.copyAttributeNames(element);
}

std::optional<QVariant> ChosenApplicationAccessibility::copyAttributeValue(const UIElementRef& element,
                                                                           const QString& attribute)
{
    if (element && element == _systemWide && attribute == u"AXFocusedApplication"_s)
        return QVariant::fromValue(_real.createApplication(_processIdentifier));
    return _real.copyAttributeValue(element, attribute);
}

std::optional<int> ChosenApplicationAccessibility::getAttributeValueCount(const UIElementRef& element,
                                                                          const QString& attribute)
{
    return _real.getAttributeValueCount(element, attribute);
}

std::optional<bool> ChosenApplicationAccessibility::isAttributeSettable(const UIElementRef& element,
                                                                        const QString& attribute)
{
    return _real.isAttributeSettable(element, attribute);
}

bool ChosenApplicationAccessibility::setAttributeValue(const UIElementRef& /*element*/,
                                                       const QString& /*attribute*/,
                                                       const QVariant& /*value*/)
{
    return false;
}

std::optional<QStringList> ChosenApplicationAccessibility::copyActionNames(const UIElementRef& element)
{
    return _real.copyActionNames(element);
}

std::optional<QString> ChosenApplicationAccessibility::copyActionDescription(const UIElementRef& element,
                                                                             const QString& action)
{
    return _real.copyActionDescription(element, action);
}

bool ChosenApplicationAccessibility::performAction(const UIElementRef& /*element*/, const QString& /*action*/)
{
    return false;
}

bool ChosenApplicationWorkspace::installAppFrontSwitchedHandler(std::function<void()> /*switched*/)
{
    return false;
}

QStringList ChosenApplicationWorkspace::searchPathForDirectoriesInDomains(SearchPathDirectory directory,
                                                                          SearchPathDomainMask domains,
                                                                          bool expandTilde) const
{
    return _real.searchPathForDirectoriesInDomains(directory, domains, expandTilde);
}

} // namespace tarnwick
