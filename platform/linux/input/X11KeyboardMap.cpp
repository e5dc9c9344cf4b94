// SPDX-License-Identifier: MIT
#include "platform/linux/input/X11KeyboardMap.h"

// The C header has a member named as a C++ keyword.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit
#include <xkbcommon/xkbcommon-x11.h>

namespace tarnwick {

namespace {

/// What all events of the keyboard extension begin with.
struct XkbEvent
{
    std::uint8_t responseType;
    std::uint8_t xkbType;
};

template <auto Unref>
struct Free
{
    template <typename T>
    void operator()(T* object) const noexcept
    {
        Unref(object);
    }
};

/// With the group that types now; null when there is none to be had. A few round trips.
std::unique_ptr<XkbKeymap> keymapOfServer(xcb_connection_t* connection)
{
    if (!connection)
        return nullptr;
    const std::int32_t device = xkb_x11_get_core_keyboard_device_id(connection);
    const std::unique_ptr<xkb_context, Free<&xkb_context_unref>> context(
        xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    if (device < 0 || !context)
        return nullptr;
    std::unique_ptr<xkb_keymap, Free<&xkb_keymap_unref>> keymap(
        xkb_x11_keymap_new_from_device(context.get(), connection, device, XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (!keymap)
        return nullptr;
    const std::unique_ptr<xkb_state, Free<&xkb_state_unref>> state(
        xkb_x11_state_new_from_device(keymap.get(), connection, device));
    const auto group = state ? xkb_state_serialize_layout(state.get(), XKB_STATE_LAYOUT_EFFECTIVE) : 0;
    return XkbKeymap::adopt(keymap.release(), group);
}

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
        _keymap = keymapOfServer(X11Connection::shared().get());
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
