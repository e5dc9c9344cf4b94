// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/XkbKeymap.h"

#include <QObject>

#include <memory>

struct wl_keyboard;
struct wl_seat;
struct wl_surface;

namespace tarnwick {

class CompositorConnection;

/// What the compositor tells of the keyboard: its map at all times, which group of it types only while a
/// window on that connection has the keyboard; until then the group is the one told last. GUI thread only.
class WaylandKeyboard final : public QObject
{
    Q_OBJECT

public:
    /// To see windows of ours this has to be the toolkit's connection.
    explicit WaylandKeyboard(std::shared_ptr<CompositorConnection> connection);
    ~WaylandKeyboard() override;

    /// With the group that types now; null before the compositor has told one. Whoever holds it keeps what it
    /// was.
    [[nodiscard]] std::shared_ptr<const XkbKeymap> keymap() const { return _keymap; }
    /// That which has the keyboard, when it is one of ours; else null.
    [[nodiscard]] wl_surface* focus() const { return _focus; }
    [[nodiscard]] wl_seat* seat() const { return _seat; }

Q_SIGNALS:
    /// Another map, or another group of it. Comes while the compositor's events are read: receivers must not
    /// run an event loop.
    void changed();
    void focusChanged();

private:
    void _setPresent(bool present);
    void _setKeymap(quint32 format, int file, std::size_t size);
    void _setGroup(xkb_layout_index_t group);
    void _setFocus(wl_surface* surface);

    std::shared_ptr<CompositorConnection> _connection;
    wl_seat* _seat;
    wl_keyboard* _keyboard = nullptr;
    wl_surface* _focus = nullptr;
    xkb_layout_index_t _group = 0;
    std::shared_ptr<const XkbKeymap> _keymap;
};

} // namespace tarnwick
