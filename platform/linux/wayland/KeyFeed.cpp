// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/KeyFeed.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <array>
#include <utility>

namespace tarnwick {

namespace {

constexpr xkb_keycode_t KernelToXkb = 8;

struct NamedKey
{
    xkb_keysym_t keysym;
    Qt::Key key;
};
/// Those that no character stands for and that a menu or a text field knows.
constexpr std::array NamedKeys{NamedKey{XKB_KEY_Escape, Qt::Key_Escape},
                               NamedKey{XKB_KEY_Tab, Qt::Key_Tab},
                               NamedKey{XKB_KEY_ISO_Left_Tab, Qt::Key_Backtab},
                               NamedKey{XKB_KEY_BackSpace, Qt::Key_Backspace},
                               NamedKey{XKB_KEY_Return, Qt::Key_Return},
                               NamedKey{XKB_KEY_KP_Enter, Qt::Key_Enter},
                               NamedKey{XKB_KEY_Insert, Qt::Key_Insert},
                               NamedKey{XKB_KEY_Delete, Qt::Key_Delete},
                               NamedKey{XKB_KEY_Home, Qt::Key_Home},
                               NamedKey{XKB_KEY_End, Qt::Key_End},
                               NamedKey{XKB_KEY_Left, Qt::Key_Left},
                               NamedKey{XKB_KEY_Up, Qt::Key_Up},
                               NamedKey{XKB_KEY_Right, Qt::Key_Right},
                               NamedKey{XKB_KEY_Down, Qt::Key_Down},
                               NamedKey{XKB_KEY_Page_Up, Qt::Key_PageUp},
                               NamedKey{XKB_KEY_Page_Down, Qt::Key_PageDown},
                               NamedKey{XKB_KEY_KP_Home, Qt::Key_Home},
                               NamedKey{XKB_KEY_KP_End, Qt::Key_End},
                               NamedKey{XKB_KEY_KP_Left, Qt::Key_Left},
                               NamedKey{XKB_KEY_KP_Up, Qt::Key_Up},
                               NamedKey{XKB_KEY_KP_Right, Qt::Key_Right},
                               NamedKey{XKB_KEY_KP_Down, Qt::Key_Down},
                               NamedKey{XKB_KEY_KP_Page_Up, Qt::Key_PageUp},
                               NamedKey{XKB_KEY_KP_Page_Down, Qt::Key_PageDown},
                               NamedKey{XKB_KEY_Menu, Qt::Key_Menu},
                               NamedKey{XKB_KEY_F10, Qt::Key_F10}};

int toolkitKey(xkb_keysym_t keysym)
{
    for (const NamedKey& named : NamedKeys)
        if (named.keysym == keysym)
            return named.key;
    const char32_t character = xkb_keysym_to_utf32(xkb_keysym_to_upper(keysym));
    return character == 0 ? Qt::Key_unknown : static_cast<int>(character);
}

QString textOf(xkb_state* state, xkb_keycode_t code)
{
    std::array<char, 32> text{};
    const int length = xkb_state_key_get_utf8(state, code, text.data(), text.size());
    return QString::fromUtf8(text.data(), qBound(0, length, int(text.size()) - 1));
}

} // namespace

KeyFeed::KeyFeed(MenuKeys& keys) : _keys(keys)
{
    connect(&_timer, &QTimer::timeout, this, &KeyFeed::_repeat);
}

KeyFeed::~KeyFeed() = default;

void KeyFeed::setKeymap(int file, std::size_t size)
{
    _keymap = compileKeymap(file, size);
    _state.reset(_keymap ? xkb_state_new(_keymap.get()) : nullptr);
    _updateState();
}

void KeyFeed::setLocked(quint32 modifiers, quint32 layout)
{
    _locked = modifiers;
    _layout = layout;
    _updateState();
}

void KeyFeed::setRepeat(int perSecond, std::chrono::milliseconds delay)
{
    _delay = delay;
    _interval = std::chrono::milliseconds(perSecond > 0 ? 1000 / perSecond : 0);
}

void KeyFeed::reset()
{
    _down.clear();
    _timer.stop();
    _updateState();
}

void KeyFeed::_updateState()
{
    if (!_state)
        return;
    xkb_mod_mask_t held = 0;
    for (const xkb_mod_mask_t modifiers : std::as_const(_down))
        held |= modifiers;
    xkb_state_update_mask(_state.get(), held, 0, _locked, 0, 0, _layout);
}

xkb_mod_mask_t KeyFeed::_modifiersOf(xkb_keycode_t code) const
{
    const State scratch(xkb_state_new(_keymap.get()));
    xkb_state_update_mask(scratch.get(), 0, 0, 0, 0, 0, _layout);
    xkb_state_update_key(scratch.get(), code, XKB_KEY_DOWN);
    return xkb_state_serialize_mods(scratch.get(), XKB_STATE_MODS_DEPRESSED);
}

Qt::KeyboardModifiers KeyFeed::_named(xkb_mod_mask_t modifiers) const
{
    Qt::KeyboardModifiers named;
    const auto among = [&](const char* name) {
        const xkb_mod_index_t index = xkb_keymap_mod_get_index(_keymap.get(), name);
        return index != XKB_MOD_INVALID && (modifiers & (1U << index)) != 0;
    };
    named.setFlag(Qt::ShiftModifier, among(XKB_MOD_NAME_SHIFT));
    named.setFlag(Qt::ControlModifier, among(XKB_MOD_NAME_CTRL));
    named.setFlag(Qt::AltModifier, among(XKB_MOD_NAME_ALT));
    named.setFlag(Qt::MetaModifier, among(XKB_MOD_NAME_LOGO));
    return named;
}

void KeyFeed::key(quint32 code, bool pressed, quint32 time)
{
    const xkb_keycode_t key = code + KernelToXkb;
    if (!_state || (!pressed && !_down.contains(key)))
        return;
    if (_repeating == key || pressed)
        _timer.stop();
    if (!pressed) {
        _down.remove(key);
        _updateState();
        _keys.release(key, time);
        return;
    }
    const xkb_mod_mask_t modifiers = _modifiersOf(key);
    _down.insert(key, modifiers);
    _updateState();
    if (modifiers == 0 && _interval.count() > 0 && xkb_keymap_key_repeats(_keymap.get(), key)) {
        _repeating = key;
        _repeatTime = time + static_cast<quint64>(_delay.count());
        _timer.start(_delay);
    }
    _press(key, modifiers, time, false);
}

void KeyFeed::_repeat()
{
    _timer.setInterval(_interval);
    _press(_repeating, 0, std::exchange(_repeatTime, _repeatTime + static_cast<quint64>(_interval.count())),
           true);
}

void KeyFeed::_press(xkb_keycode_t code, xkb_mod_mask_t modifiers, quint64 time, bool repeats)
{
    const xkb_keysym_t keysym = xkb_state_key_get_one_sym(_state.get(), code);
    _keys.press({.code = code,
                 .time = time,
                 .key = toolkitKey(keysym),
                 .text = textOf(_state.get(), code),
                 .keysym = keysym,
                 .repeats = repeats,
                 .isModifier = modifiers != 0,
                 .modifier = _named(modifiers)});
}

} // namespace tarnwick

#include "moc_KeyFeed.cpp"
