// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/XkbKeyboardLayout.h"

#include "platform/linux/input/KeyCodes.h"
#include "platform/linux/x11/X11Connection.h"

// The C header has a member named as a C++ keyword.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

#include <utility>

namespace tarnwick {

namespace {

constexpr quint32 ShiftState = 0x200;
constexpr quint32 OptionState = 0x800;
constexpr qsizetype LongestText = 4;

class XkbKeyLayout final : public KeyboardLayout::UnicodeKeyLayout
{
public:
    explicit XkbKeyLayout(std::shared_ptr<const XkbKeymap> keymap) : _keymap(std::move(keymap)) {}

    [[nodiscard]] std::optional<QString> keyTranslate(quint16 virtualKeyCode, quint16 /*keyAction*/,
                                                      quint32 modifierKeyState, quint32 /*keyboardType*/,
                                                      quint32 /*options*/,
                                                      quint32& /*deadKeyState*/) const override
    {
        const auto keyCode = x11KeyCodeOf(virtualKeyCode);
        if (!keyCode)
            return virtualKeyCode < 128 ? std::optional(QString()) : std::nullopt;
        return _keymap
            ->text(*keyCode, (modifierKeyState & ShiftState) != 0, (modifierKeyState & OptionState) != 0)
            .left(LongestText);
    }

private:
    std::shared_ptr<const XkbKeymap> _keymap;
};

/// What all events of the keyboard extension begin with.
struct XkbEvent
{
    std::uint8_t responseType;
    std::uint8_t xkbType;
};

} // namespace

XkbKeyboardLayout::XkbKeyboardLayout()
{
    auto& x11 = X11Connection::shared();
    if (!x11)
        return;
    const auto* extension = xcb_get_extension_data(x11.get(), &xcb_xkb_id);
    if (!extension || !extension->present)
        return;
    _firstEvent = extension->first_event;
    install();
}

XkbKeyboardLayout::~XkbKeyboardLayout() = default;

std::unique_ptr<KeyboardLayout::UnicodeKeyLayout> XkbKeyboardLayout::copyCurrentKeyboardInputSource() const
{
    auto current = keymap();
    if (!current)
        return nullptr;
    return std::make_unique<XkbKeyLayout>(std::move(current));
}

quint8 XkbKeyboardLayout::keyboardType() const
{
    return 0; // the map names physical keys alike for every keyboard
}

void XkbKeyboardLayout::addSelectedKeyboardInputSourceChangedObserver(std::function<void()> changed)
{
    _observers.append(std::move(changed));
}

std::shared_ptr<const XkbKeymap> XkbKeyboardLayout::keymap() const
{
    if (!_keymap)
        _keymap = XkbKeymap::ofServer(X11Connection::shared().get());
    return _keymap;
}

bool XkbKeyboardLayout::filter(std::uint8_t type, xcb_generic_event_t& event)
{
    if (type != _firstEvent)
        return false;
    const auto xkbType = x11EventAs<XkbEvent>(event).xkbType;
    if (xkbType == XCB_XKB_STATE_NOTIFY)
        _groupChanged(x11EventAs<xcb_xkb_state_notify_event_t>(event).group);
    else if (xkbType == XCB_XKB_MAP_NOTIFY || xkbType == XCB_XKB_NEW_KEYBOARD_NOTIFY)
        _mapChanged();
    return false;
}

void XkbKeyboardLayout::_mapChanged()
{
    _keymap.reset(); // read afresh when it is asked for: changes come in bursts
    _notifyLater();
}

void XkbKeyboardLayout::_groupChanged(quint8 group)
{
    if (!_keymap || _keymap->group() == group)
        return;
    // A look-up that is going on keeps the map that it began with.
    _mapChanged();
}

void XkbKeyboardLayout::_notifyLater()
{
    if (std::exchange(_notifying, true))
        return;
    QMetaObject::invokeMethod(this, &XkbKeyboardLayout::_notify, Qt::QueuedConnection);
}

void XkbKeyboardLayout::_notify()
{
    _notifying = false;
    const auto observers = _observers;
    for (const auto& observer : observers)
        observer();
}

} // namespace tarnwick

#include "moc_XkbKeyboardLayout.cpp"
