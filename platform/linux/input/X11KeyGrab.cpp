// SPDX-License-Identifier: MIT
#include "platform/linux/input/X11KeyGrab.h"

#include "platform/linux/input/X11ModifierMap.h"
#include "platform/linux/x11/X11Connection.h"

#include <algorithm>

namespace tarnwick {

namespace {

QList<quint16> difference(const QList<quint16>& from, const QList<quint16>& what)
{
    QList<quint16> rest;
    std::copy_if(from.cbegin(), from.cend(), std::back_inserter(rest),
                 [&](quint16 state) { return !what.contains(state); });
    return rest;
}

} // namespace

std::unique_ptr<X11KeyGrab> X11KeyGrab::take(X11Connection& connection, const X11ModifierMap& modifierMap,
                                             quint8 keyCode, quint32 eventModifiers)
{
    std::unique_ptr<X11KeyGrab> grab(new X11KeyGrab(connection, keyCode, eventModifiers));
    const QList<quint16> wanted = grab->_wanted(modifierMap);
    if (wanted.isEmpty() || !grab->_grab(wanted))
        return nullptr;
    return grab;
}

X11KeyGrab::X11KeyGrab(X11Connection& connection, quint8 keyCode, quint32 eventModifiers)
    : _connection(connection), _keyCode(keyCode), _eventModifiers(eventModifiers)
{
}

X11KeyGrab::~X11KeyGrab()
{
    _ungrab(_grabbed);
    xcb_flush(_connection.get());
}

bool X11KeyGrab::matches(quint8 keyCode, quint16 state, const X11ModifierMap& modifierMap) const
{
    const auto bits = modifierMap.bitsOfEventModifiers(_eventModifiers);
    return keyCode == _keyCode && bits && modifierMap.withoutLocks(state) == *bits;
}

void X11KeyGrab::follow(const X11ModifierMap& modifierMap)
{
    const QList<quint16> wanted = _wanted(modifierMap);
    const QList<quint16> excess = difference(_grabbed, wanted);
    _ungrab(excess);
    _grabbed = difference(_grabbed, excess);
    // What somebody else has by now is left to them; the other combinations go on working.
    for (const quint16 state : difference(wanted, _grabbed))
        static_cast<void>(_grab({state}));
}

QList<quint16> X11KeyGrab::_wanted(const X11ModifierMap& modifierMap) const
{
    const auto bits = modifierMap.bitsOfEventModifiers(_eventModifiers);
    QList<quint16> states;
    if (!bits)
        return states;
    for (const quint16 locks : modifierMap.lockCombinations()) {
        const auto state = static_cast<quint16>(*bits | locks);
        if (!states.contains(state))
            states.append(state);
    }
    return states;
}

bool X11KeyGrab::_grab(const QList<quint16>& states)
{
    QList<xcb_void_cookie_t> cookies;
    for (const quint16 state : states)
        cookies.append(xcb_grab_key_checked(_connection.get(), 0, _connection.root(), state, _keyCode,
                                            XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    QList<quint16> granted;
    for (qsizetype i = 0; i < states.size(); ++i) {
        const XcbOwned<xcb_generic_error_t> error(xcb_request_check(_connection.get(), cookies.at(i)));
        if (!error)
            granted.append(states.at(i));
    }
    if (granted.size() != states.size()) {
        _ungrab(granted);
        return false;
    }
    _grabbed += granted;
    return true;
}

void X11KeyGrab::_ungrab(const QList<quint16>& states) const
{
    for (const quint16 state : states)
        xcb_ungrab_key(_connection.get(), _keyCode, _connection.root(), state);
}

} // namespace tarnwick
