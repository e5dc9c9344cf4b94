// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/wayland/CompositorKeymap.h"
#include "platform/qt/menu/MenuKeys.h"

#include <QHash>
#include <QObject>
#include <QTimer>
#include <xkbcommon/xkbcommon.h>

#include <chrono>
#include <memory>

namespace tarnwick {

/// Keys as the compositor tells them, made keys for the menu, repeats included. Keys that were down before
/// the start are unknown here: their releases do nothing, and their modifiers do not count, since not every
/// compositor tells when they go up. Key codes are those of the kernel, times are in milliseconds. GUI thread
/// only.
class KeyFeed final : public QObject
{
    Q_OBJECT

public:
    /// `keys` must outlive this.
    explicit KeyFeed(MenuKeys& keys);
    ~KeyFeed() override;

    /// A text of `size` bytes in that file, which is closed. Until there is one no key does anything.
    void setKeymap(int file, std::size_t size);
    /// What is locked or chosen for good; what is held down is known from the keys.
    void setLocked(quint32 modifiers, quint32 layout);
    /// Nothing repeats at a rate of 0.
    void setRepeat(int perSecond, std::chrono::milliseconds delay);
    void key(quint32 code, bool pressed, quint32 time);
    /// Forgets what is down; nothing repeats any more.
    void reset();

private:
    struct FreeState
    {
        void operator()(xkb_state* state) const { xkb_state_unref(state); }
    };
    using State = std::unique_ptr<xkb_state, FreeState>;

    /// The modifiers that the key sets while it is down.
    [[nodiscard]] xkb_mod_mask_t _modifiersOf(xkb_keycode_t code) const;
    void _updateState();
    [[nodiscard]] Qt::KeyboardModifiers _named(xkb_mod_mask_t modifiers) const;
    void _press(xkb_keycode_t code, xkb_mod_mask_t modifiers, quint64 time, bool repeats);
    void _repeat();

    MenuKeys& _keys;
    CompositorKeymap _keymap;
    State _state;
    QHash<xkb_keycode_t, xkb_mod_mask_t> _down; ///< with the modifiers that each sets
    xkb_mod_mask_t _locked = 0;
    xkb_layout_index_t _layout = 0;
    xkb_keycode_t _repeating = 0;
    quint64 _repeatTime = 0;
    std::chrono::milliseconds _delay{600};
    std::chrono::milliseconds _interval{40};
    QTimer _timer;
};

} // namespace tarnwick
