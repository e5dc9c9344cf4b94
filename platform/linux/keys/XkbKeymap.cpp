// SPDX-License-Identifier: MIT
#include "platform/linux/keys/XkbKeymap.h"

#include "foundation/Event.h"

#include <QList>
#include <xkbcommon/xkbcommon-keysyms.h>

#include <algorithm>

namespace tarnwick {

namespace {

constexpr const char* Alt = "Mod1";

/// What a dead key types by itself.
struct Accent
{
    xkb_keysym_t keysym;
    char16_t character;
};

constexpr Accent Accents[] = {
    {XKB_KEY_dead_grave, u'`'},          {XKB_KEY_dead_acute, 0x00B4},
    {XKB_KEY_dead_circumflex, u'^'},     {XKB_KEY_dead_tilde, u'~'},
    {XKB_KEY_dead_macron, 0x00AF},       {XKB_KEY_dead_breve, 0x02D8},
    {XKB_KEY_dead_abovedot, 0x02D9},     {XKB_KEY_dead_diaeresis, 0x00A8},
    {XKB_KEY_dead_abovering, 0x02DA},    {XKB_KEY_dead_doubleacute, 0x02DD},
    {XKB_KEY_dead_caron, 0x02C7},        {XKB_KEY_dead_cedilla, 0x00B8},
    {XKB_KEY_dead_ogonek, 0x02DB},       {XKB_KEY_dead_iota, 0x037A},
    {XKB_KEY_dead_voiced_sound, 0x309B}, {XKB_KEY_dead_semivoiced_sound, 0x309C},
    {XKB_KEY_dead_belowdot, u'.'},       {XKB_KEY_dead_hook, 0x02C0},
    {XKB_KEY_dead_horn, 0x031B},         {XKB_KEY_dead_stroke, u'/'},
    {XKB_KEY_dead_greek, 0x00B5},        {XKB_KEY_dead_currency, 0x00A4},
};

QString typed(xkb_state* state, xkb_keycode_t keyCode)
{
    const xkb_keysym_t keysym = xkb_state_key_get_one_sym(state, keyCode);
    const auto* accent = std::find_if(std::cbegin(Accents), std::cend(Accents),
                                      [&](const Accent& entry) { return entry.keysym == keysym; });
    if (accent != std::cend(Accents))
        return QString(QChar(accent->character));
    char text[64];
    const int length = xkb_state_key_get_utf8(state, keyCode, text, sizeof text);
    return length > 0 && std::size_t(length) < sizeof text ? QString::fromUtf8(text, length) : QString();
}

} // namespace

XkbKeymap::XkbKeymap(xkb_keymap* keymap, xkb_layout_index_t group) : _keymap(keymap), _group(group) {}

std::unique_ptr<XkbKeymap> XkbKeymap::adopt(xkb_keymap* keymap, xkb_layout_index_t group)
{
    return std::unique_ptr<XkbKeymap>(keymap ? new XkbKeymap(keymap, group) : nullptr);
}

std::unique_ptr<XkbKeymap> XkbKeymap::ofNames(const QByteArray& layouts, const QByteArray& variants,
                                              const QByteArray& options)
{
    const std::unique_ptr<xkb_context, Free> context(xkb_context_new(XKB_CONTEXT_NO_ENVIRONMENT_NAMES));
    if (!context)
        return nullptr;
    xkb_context_set_log_level(context.get(), XKB_LOG_LEVEL_CRITICAL);
    xkb_rule_names names = {};
    names.rules = "evdev";
    names.model = "pc105";
    names.layout = layouts.constData();
    names.variant = variants.constData();
    names.options = options.constData();
    return adopt(xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS), 0);
}

std::unique_ptr<XkbKeymap> XkbKeymap::withGroup(xkb_layout_index_t group) const
{
    return adopt(xkb_keymap_ref(_keymap.get()), group);
}

QList<quint32> XkbKeymap::keysymsOf(quint16 keyCode) const
{
    QList<quint32> all;
    const auto groups = xkb_keymap_num_layouts_for_key(_keymap.get(), keyCode);
    for (xkb_layout_index_t group = 0; group < groups; ++group) {
        const auto levels = xkb_keymap_num_levels_for_key(_keymap.get(), keyCode, group);
        for (xkb_level_index_t level = 0; level < levels; ++level) {
            const xkb_keysym_t* keysyms = nullptr;
            const int count =
                xkb_keymap_key_get_syms_by_level(_keymap.get(), keyCode, group, level, &keysyms);
            all.append(QList<quint32>(keysyms, keysyms + count));
        }
    }
    return all;
}

QString XkbKeymap::text(quint16 keyCode, bool shift, bool alt) const
{
    QList<const char*> held;
    if (shift)
        held.append(XKB_MOD_NAME_SHIFT);
    if (alt)
        held.append(Alt);
    // Keypad keys type with Num Lock on, and only without Shift.
    const QList<const char*> tries[] = {held, QList(held) << XKB_MOD_NAME_NUM, {XKB_MOD_NAME_NUM}};
    for (const auto& modifiers : tries) {
        QString text = typed(_state(modifiers).get(), keyCode);
        if (!text.isEmpty())
            return text;
    }
    return {};
}

quint64 XkbKeymap::modifier(quint16 keyCode) const
{
    switch (xkb_state_key_get_one_sym(_state({}).get(), keyCode)) {
    case XKB_KEY_Shift_L:
    case XKB_KEY_Shift_R:
        return ShiftKeyMask;
    case XKB_KEY_Control_L:
    case XKB_KEY_Control_R:
        return ControlKeyMask;
    case XKB_KEY_Alt_L:
    case XKB_KEY_Alt_R:
        return AlternateKeyMask;
    case XKB_KEY_Meta_L:
    case XKB_KEY_Meta_R:
    case XKB_KEY_Super_L:
    case XKB_KEY_Super_R:
        return CommandKeyMask;
    default:
        return 0;
    }
}

std::optional<XkbKeymap::Key> XkbKeymap::keyOf(xkb_keysym_t keysym) const
{
    if (keysym == XKB_KEY_NoSymbol)
        return std::nullopt;
    QList<xkb_layout_index_t> groups = {_group};
    for (xkb_layout_index_t group = 0; group < xkb_keymap_num_layouts(_keymap.get()); ++group) {
        if (group != _group)
            groups.append(group);
    }
    for (const xkb_layout_index_t group : groups) {
        for (const xkb_level_index_t level : {0U, 1U}) {
            if (const auto key = _keyInGroup(keysym, group, level))
                return key;
        }
    }
    return std::nullopt;
}

XkbKeymap::State XkbKeymap::_state(const QList<const char*>& modifiers) const
{
    xkb_mod_mask_t mask = 0;
    for (const char* name : modifiers) {
        const xkb_mod_index_t index = xkb_keymap_mod_get_index(_keymap.get(), name);
        if (index != XKB_MOD_INVALID)
            mask |= 1U << index;
    }
    State state(xkb_state_new(_keymap.get()));
    xkb_state_update_mask(state.get(), mask, 0, 0, 0, 0, _group);
    return state;
}

std::optional<XkbKeymap::Key> XkbKeymap::_keyInGroup(xkb_keysym_t keysym, xkb_layout_index_t group,
                                                     xkb_level_index_t level) const
{
    const xkb_keysym_t wanted = xkb_keysym_to_lower(keysym);
    const xkb_keycode_t last = std::min<xkb_keycode_t>(xkb_keymap_max_keycode(_keymap.get()), 0xFFFF);
    for (xkb_keycode_t code = xkb_keymap_min_keycode(_keymap.get()); code <= last; ++code) {
        const xkb_layout_index_t groups = xkb_keymap_num_layouts_for_key(_keymap.get(), code);
        if (groups == 0)
            continue;
        const xkb_keysym_t* symbols = nullptr;
        const int count =
            xkb_keymap_key_get_syms_by_level(_keymap.get(), code, group % groups, level, &symbols);
        // The capital of a letter is the same key, with Shift named apart.
        if (count == 1 && (level == 0 ? xkb_keysym_to_lower(symbols[0]) == wanted : symbols[0] == keysym))
            return Key{quint16(code), level == 1};
    }
    return std::nullopt;
}

} // namespace tarnwick
