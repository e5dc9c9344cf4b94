// SPDX-License-Identifier: MIT
#include "platform/linux/input/X11KeyboardMap.h"

// The C header has a member named as a C++ keyword.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

namespace tarnwick {

namespace {

/// What all events of the keyboard extension begin with.
struct XkbEvent
{
    std::uint8_t responseType;
    std::uint8_t xkbType;
};

} // namespace

X11KeyboardMap& X11KeyboardMap::shared()
{
    static X11KeyboardMap map;
    return map;
}

X11KeyboardMap::X11KeyboardMap()
{
    auto& x11 = X11Connection::shared();
    if (!x11)
        return;
    if (const auto* xkb = xcb_get_extension_data(x11.get(), &xcb_xkb_id); xkb && xkb->present)
        _xkbFirstEvent = xkb->first_event;
    install();
}

X11KeyboardMap::~X11KeyboardMap() = default;

std::shared_ptr<const XkbKeymap> X11KeyboardMap::keymap()
{
    if (!_keymap)
        _keymap = XkbKeymap::ofServer(X11Connection::shared().get());
    return _keymap;
}

const X11ModifierMap& X11KeyboardMap::modifiers()
{
    if (!_modifiers) {
        const auto known = X11Connection::shared() ? keymap() : nullptr;
        _modifiers = known ? X11ModifierMap::read(X11Connection::shared(), *known) : X11ModifierMap();
    }
    return *_modifiers;
}

bool X11KeyboardMap::filter(std::uint8_t type, xcb_generic_event_t& event)
{
    if (type == XCB_MAPPING_NOTIFY)
        _mapChanged();
    if (_xkbFirstEvent == 0 || type != _xkbFirstEvent)
        return false;
    const auto xkbType = x11EventAs<XkbEvent>(event).xkbType;
    if (xkbType == XCB_XKB_STATE_NOTIFY)
        _groupIs(x11EventAs<xcb_xkb_state_notify_event_t>(event).group);
    else if (xkbType == XCB_XKB_MAP_NOTIFY || xkbType == XCB_XKB_NEW_KEYBOARD_NOTIFY)
        _mapChanged();
    return false;
}

void X11KeyboardMap::_mapChanged()
{
    _keymap.reset(); // read afresh when it is asked for: changes come in bursts
    _modifiers.reset();
    Q_EMIT changed();
}

void X11KeyboardMap::_groupIs(quint8 group)
{
    if (!_keymap || _keymap->group() == group)
        return;
    // A look-up that is going on keeps the map that it began with.
    _keymap.reset();
    Q_EMIT groupChanged();
}

} // namespace tarnwick

#include "moc_X11KeyboardMap.cpp"
