// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <xkbcommon/xkbcommon.h>

#include <memory>
#include <optional>

namespace tarnwick {

/// A keyboard map and the group of it that types: what a key gives, and which key gives something. Key codes
/// are X's. Immutable but for the group.
class XkbKeymap
{
public:
    /// Takes a map that the library has made, and the group that types; null for none.
    [[nodiscard]] static std::unique_ptr<XkbKeymap> adopt(xkb_keymap* keymap, xkb_layout_index_t group);
    /// The map of the named layouts ("us,de"), their variants and options, the first one current; null when
    /// there is no such layout.
    [[nodiscard]] static std::unique_ptr<XkbKeymap>
    ofNames(const QByteArray& layouts, const QByteArray& variants = {}, const QByteArray& options = {});

    void setGroup(xkb_layout_index_t group) { _group = group; }
    /// The same map, of which that group types.
    [[nodiscard]] std::unique_ptr<XkbKeymap> withGroup(xkb_layout_index_t group) const;
    [[nodiscard]] xkb_layout_index_t group() const { return _group; }

    /// What the key types, keypad keys as with Num Lock on and a dead key its accent by itself; empty when it
    /// types nothing.
    [[nodiscard]] QString text(quint16 keyCode, bool shift, bool alt) const;

    /// The modifier flag of Shift, Control, Alt or Super, whichever the key is when it is pressed alone; 0
    /// for every other key.
    [[nodiscard]] quint64 modifier(quint16 keyCode) const;

    /// All that the key can give, in every group and with every modifier.
    [[nodiscard]] QList<quint32> keysymsOf(quint16 keyCode) const;

    struct Key
    {
        quint16 code = 0;
        bool shift = false; ///< has to be held
    };
    /// The key that gives `keysym`: in the current group, else in another one; alone, else with Shift.
    [[nodiscard]] std::optional<Key> keyOf(xkb_keysym_t keysym) const;

private:
    struct Free
    {
        void operator()(xkb_context* context) const noexcept { xkb_context_unref(context); }
        void operator()(xkb_keymap* keymap) const noexcept { xkb_keymap_unref(keymap); }
        void operator()(xkb_state* state) const noexcept { xkb_state_unref(state); }
    };
    using State = std::unique_ptr<xkb_state, Free>;

    XkbKeymap(xkb_keymap* keymap, xkb_layout_index_t group);
    [[nodiscard]] State _state(const QList<const char*>& modifiers) const;
    [[nodiscard]] std::optional<Key> _keyInGroup(xkb_keysym_t keysym, xkb_layout_index_t group,
                                                 xkb_level_index_t level) const;

    std::unique_ptr<xkb_keymap, Free> _keymap;
    xkb_layout_index_t _group;
};

} // namespace tarnwick
