// SPDX-License-Identifier: MIT
#include "platform/linux/elements/ApplicationElement.h"

#include "ax/Accessibility.h"
#include "platform/linux/elements/MenuElement.h"
#include "platform/linux/elements/NativeWindowElement.h"
#include "platform/linux/elements/WindowElement.h"

#include <QCoreApplication>

#include <cerrno>
#include <csignal>

using namespace Qt::StringLiterals;

namespace tarnwick {

ApplicationElement::ApplicationElement(LinuxReading& reading, std::optional<qint64> processIdentifier)
    : _reading(reading), _processIdentifier(processIdentifier)
{
}

QByteArray ApplicationElement::identity() const
{
    return QByteArray::number(_processIdentifier.value_or(-1));
}

QStringList ApplicationElement::attributeNames() const
{
    if (!_processIdentifier)
        return {AXRoleAttribute};
    QStringList names{AXRoleAttribute, AXTitleAttribute,    u"AXFocusedWindow"_s,
                      u"AXWindows"_s,  AXChildrenAttribute, u"AXFrontmost"_s};
    const ReadingBudget::Reading reading(_reading.budget);
    if (_processIdentifier == QCoreApplication::applicationPid() ||
        _reading.tree.bus.connection(reading.deadline()))
        names.append(u"AXMenuBar"_s);
    return names;
}

std::optional<QVariant> ApplicationElement::value(const QString& attribute) const
{
    if (!_exists())
        return std::nullopt;
    if (attribute == AXRoleAttribute)
        return AXApplicationRole;
    if (!_processIdentifier)
        return std::nullopt;
    if (attribute == AXTitleAttribute) {
        const QString name = _reading.names.of(*_processIdentifier);
        return name.isEmpty() ? std::nullopt : std::optional<QVariant>(name);
    }
    if (attribute == "AXMenuBar"_L1)
        return _menuBar();
    if (attribute == "AXFrontmost"_L1)
        return _isInFront();
    if (attribute == "AXWindows"_L1)
        return _windows();
    if (attribute == AXChildrenAttribute) {
        const auto bar = _menuBar();
        return bar ? _windows() << *bar : _windows();
    }
    if (attribute == "AXFocusedWindow"_L1) {
        const FrontWindow window = _focusedWindow();
        return window ? std::optional<QVariant>(_element(window)) : std::nullopt;
    }
    return std::nullopt;
}

bool ApplicationElement::_exists() const
{
    if (!_processIdentifier)
        return true;
    return kill(static_cast<pid_t>(*_processIdentifier), 0) == 0 || errno == EPERM;
}

bool ApplicationElement::_isInFront() const
{
    return _reading.front->current().processIdentifier == _processIdentifier;
}

FrontWindow ApplicationElement::_focusedWindow() const
{
    FrontWindow front = _reading.front->current();
    if (front.processIdentifier == _processIdentifier)
        return front;
    const QList<xcb_window_t> windows = _reading.windows.windowsOf(*_processIdentifier);
    if (!windows.isEmpty())
        return {windows.last(), _processIdentifier};
    const QList<BusReference> native = _nativeWindows();
    return native.isEmpty() ? FrontWindow{} : FrontWindow{XCB_WINDOW_NONE, _processIdentifier, native.last()};
}

QList<BusReference> ApplicationElement::_nativeWindows() const
{
    return _reading.tree.menuBars.windowsOf(*_processIdentifier);
}

QVariant ApplicationElement::_element(const FrontWindow& window) const
{
    if (!window.isNative())
        return WindowElement::make(_reading, {window.window, window.processIdentifier});
    return QVariant::fromValue(UIElementRef(std::make_shared<const NativeWindowElement>(_reading, window)));
}

std::optional<QVariant> ApplicationElement::_menuBar() const
{
    const FrontWindow window = _focusedWindow();
    const FoundMenuBar found = window ? _reading.menuBars.of(window) : FoundMenuBar{};
    if (!found)
        return std::nullopt;
    const UIElementRef self(std::make_shared<const ApplicationElement>(_reading, _processIdentifier));
    return QVariant::fromValue(UIElementRef(std::make_shared<const MenuElement>(
        MenuElement::Kind::Bar, *found.source, found.bar, self, _processIdentifier)));
}

QVariantList ApplicationElement::_windows() const
{
    QVariantList elements;
    for (const xcb_window_t window : _reading.windows.windowsOf(*_processIdentifier))
        elements.append(_element({window, _processIdentifier}));
    if (!elements.isEmpty())
        return elements;
    const QList<BusReference> native = _nativeWindows();
    for (const BusReference& window : native)
        elements.append(_element({XCB_WINDOW_NONE, _processIdentifier, window}));
    return elements;
}

} // namespace tarnwick
