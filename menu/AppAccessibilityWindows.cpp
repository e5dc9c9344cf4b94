// SPDX-License-Identifier: MIT
// The queries of AppAccessibility about the application in front and its focused window.
#include "ax/AXValue.h"
#include "ax/Accessibility.h"
#include "ax/UIElementUtilities.h"
#include "foundation/Screens.h"
#include "foundation/Workspace.h"
#include "menu/AppAccessibility.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

std::optional<QString> textOf(const QString& attribute, const UIElementRef& element)
{
    return UIElementUtilities::descriptionOfValueBeingVerbose(
        UIElementUtilities::valueOfAttributeOfUIElement(attribute, element), false);
}

UIElementRef elementOf(const QString& attribute, const UIElementRef& element)
{
    return UIElementUtilities::valueOfAttributeOfUIElement(attribute, element).value<UIElementRef>();
}

void setValue(const UIElementRef& element, const QString& attribute, const AXValue& value)
{
    if (element)
        Accessibility::shared().setAttributeValue(element, attribute, QVariant::fromValue(value));
}

} // namespace

std::optional<QString> AppAccessibility::focusedAppName() const
{
    const auto application = Workspace::shared().activeApplication();
    return application ? std::optional(application->name) : std::nullopt;
}

std::optional<QString> AppAccessibility::focusedWindowTitle() const
{
    return textOf(AXTitleAttribute, _focusedWindow());
}

std::optional<QString> AppAccessibility::focusedWindowRole() const
{
    return textOf(u"AXRoleDescription"_s, _focusedWindow());
}

bool AppAccessibility::isAuxiliaryWindowActive() const
{
    const auto role = focusedWindowRole();
    const auto title = focusedWindowTitle();
    if (role == u"window"_s && title == u"Help"_s)
        return true;
    if (!role || !title)
        return true;
    if (*role == u"sheet" || *role == u"dialog" || *role == u"floating window")
        return true;
    if (*title == u"Copy" || *title == u"contextMenu")
        return true;
    if (title->startsWith(u"Copying") || title->startsWith(u"Moving") || title->startsWith(u"Deleting"))
        return true;
    if (*title == u"Delete" || *title == u"Duplicate")
        return true;
    if (title->startsWith(u"Pendrake"))
        return true;
    if (*title == u"System Preferences")
        return true;
    return *title == u"Tarnwick: Your app's menu. Everywhere.";
}

bool AppAccessibility::isFinderDesktopWindowActive() const
{
    const auto application = textOf(AXTitleAttribute, _appAXUIElementRef);
    const auto role = focusedWindowRole();
    return (application == u"Finder"_s && role == u"scroll area"_s) || role == u"AXWindow:AXUnknown"_s;
}

QRectF AppAccessibility::focusedWindowFrameNS() const
{
    return UIElementUtilities::frameOfUIElement(_focusedWindow());
}

QRectF AppAccessibility::focusedWindowFrameCG() const
{
    return convertNSToCGRectCoords(focusedWindowFrameNS());
}

QPointF AppAccessibility::focusedWindowPosition() const
{
    return focusedWindowFrameNS().topLeft();
}

QPointF AppAccessibility::focusedWindowPositionCG() const
{
    return focusedWindowFrameCG().topLeft();
}

QRectF AppAccessibility::focusedWindowTitleFrame() const
{
    return UIElementUtilities::frameOfUIElement(_focusedWindowTitleElement());
}

QPointF AppAccessibility::focusedWindowTitlePosition() const
{
    const AXValue position =
        UIElementUtilities::valueOfAttributeOfUIElement(AXPositionAttribute, _focusedWindowTitleElement())
            .value<AXValue>();
    const auto* point = position.get<QPointF>();
    return point ? *point : QPointF();
}

QRectF AppAccessibility::convertNSToCGRectCoords(const QRectF& rect) const
{
    const QRectF display = Screens::shared().mainDisplayBounds();
    // Rounded to single precision on purpose.
    const double bottom = static_cast<float>(display.height() + display.y());
    return {rect.x(), bottom - (rect.y() + rect.height()), rect.width(), rect.height()};
}

void AppAccessibility::setSizeOfFocusedWindowH(float width, float height)
{
    setValue(_focusedWindow(), AXSizeAttribute, AXValue(QSizeF(width, height)));
}

void AppAccessibility::setPositionOfFocusedWindowY(float x, float y)
{
    setValue(_focusedWindow(), AXPositionAttribute, AXValue(QPointF(x, y)));
}

UIElementRef AppAccessibility::_focusedWindow() const
{
    return elementOf(u"AXFocusedWindow"_s, _appAXUIElementRef);
}

UIElementRef AppAccessibility::_focusedWindowTitleElement() const
{
    return elementOf(u"AXTitleUIElement"_s, _focusedWindow());
}

} // namespace tarnwick
