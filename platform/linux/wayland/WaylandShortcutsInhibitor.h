// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

struct zwp_keyboard_shortcuts_inhibit_manager_v1;
struct zwp_keyboard_shortcuts_inhibitor_v1;

namespace tarnwick {

class CompositorConnection;
class WaylandKeyboard;

/// Asks the compositor to keep its shortcuts from the keys for our window that has the keyboard. The
/// compositor has the last word, and does not say which. GUI thread only.
class WaylandShortcutsInhibitor
{
public:
    /// Of the toolkit's connection, both.
    WaylandShortcutsInhibitor(std::shared_ptr<CompositorConnection> connection,
                              std::shared_ptr<const WaylandKeyboard> keyboard);
    ~WaylandShortcutsInhibitor();
    WaylandShortcutsInhibitor(const WaylandShortcutsInhibitor&) = delete;
    WaylandShortcutsInhibitor& operator=(const WaylandShortcutsInhibitor&) = delete;

    /// False when none of our windows has the keyboard, or the compositor knows of no such thing.
    [[nodiscard]] bool take();
    void release();

private:
    std::shared_ptr<CompositorConnection> _connection;
    std::shared_ptr<const WaylandKeyboard> _keyboard;
    zwp_keyboard_shortcuts_inhibit_manager_v1* _manager;
    zwp_keyboard_shortcuts_inhibitor_v1* _inhibitor = nullptr;
};

} // namespace tarnwick
