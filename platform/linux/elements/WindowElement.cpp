// SPDX-License-Identifier: MIT
#include "platform/linux/elements/WindowElement.h"

#include "ax/AXValue.h"
#include "ax/Accessibility.h"
#include "platform/linux/elements/ApplicationElement.h"
#include "platform/linux/x11/ScreenSpaces.h"
#include "platform/linux/x11/X11WindowFrame.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

QVariant WindowElement::make(LinuxReading& reading, const X11Window& window)
{
    return QVariant::fromValue(UIElementRef(std::make_shared<const WindowElement>(reading, window)));
}

QByteArray WindowElement::identity() const
{
    return QByteArray::number(_window.id);
}

QStringList WindowElement::attributeNames() const
{
    return {AXRoleAttribute,   AXTitleAttribute, u"AXRoleDescription"_s, AXPositionAttribute, AXSizeAttribute,
            AXParentAttribute, u"AXMain"_s};
}

std::optional<QVariant> WindowElement::value(const QString& attribute) const
{
    if (attribute == AXRoleAttribute)
        return u"AXWindow"_s;
    if (attribute == AXParentAttribute)
        return QVariant::fromValue(
            UIElementRef(std::make_shared<const ApplicationElement>(_reading, _window.processIdentifier)));
    const auto frame = X11WindowFrame(X11Connection::shared(), _window.id).geometry();
    if (!frame)
        return std::nullopt;
    if (attribute == AXPositionAttribute)
        return QVariant::fromValue(AXValue(displaySystemPoint(frame->topLeft(), currentMonitors())));
    if (attribute == AXSizeAttribute)
        return QVariant::fromValue(AXValue(QSizeF(frame->size())));
    if (attribute == "AXRoleDescription"_L1)
        return _roleDescription();
    if (attribute == "AXMain"_L1)
        return _isMain();
    if (attribute != AXTitleAttribute)
        return std::nullopt;
    const auto title = _reading.windows.title(_window.id);
    return title ? std::optional<QVariant>(*title) : std::nullopt;
}

QString WindowElement::_roleDescription() const
{
    X11Windows& windows = _reading.windows;
    const auto is = [&](const QByteArray& type) {
        return windows.lists(_window.id, "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_" + type);
    };
    const bool transient = windows.transientFor(_window.id) != XCB_WINDOW_NONE;
    if (transient && windows.lists(_window.id, "_NET_WM_STATE", "_NET_WM_STATE_MODAL"))
        return u"sheet"_s;
    if (is("UTILITY") || is("TOOLBAR") || is("SPLASH"))
        return u"floating window"_s;
    const bool typed = X11Connection::shared().property32(_window.id, "_NET_WM_WINDOW_TYPE").has_value();
    return is("DIALOG") || (transient && !typed) ? u"dialog"_s : u"window"_s;
}

bool WindowElement::_isMain() const
{
    const FrontWindow front = _reading.front->current();
    return front.processIdentifier == _window.processIdentifier &&
           _reading.windows.withOwners(front.window).endsWith(_window.id);
}

bool WindowElement::isSettable(const QString& attribute) const
{
    return attribute == AXPositionAttribute || attribute == AXSizeAttribute;
}

bool WindowElement::setValue(const QString& attribute, const QVariant& value) const
{
    const auto structured = value.value<AXValue>();
    X11WindowFrame frame(X11Connection::shared(), _window.id);
    if (const auto* point = structured.get<QPointF>(); point && attribute == AXPositionAttribute)
        return frame.move(pixelAtDisplaySystemPoint(*point, currentMonitors()));
    if (const auto* size = structured.get<QSizeF>(); size && attribute == AXSizeAttribute)
        return frame.resize(size->toSize());
    return false;
}

} // namespace tarnwick
