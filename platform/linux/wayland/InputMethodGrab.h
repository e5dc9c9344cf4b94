// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

struct zwp_input_method_keyboard_grab_v2;
struct zwp_input_method_manager_v2;
struct zwp_input_method_v2;

namespace tarnwick {

class CompositorConnection;
class KeyFeed;

/// The keyboard as an input method has it: keys come to the feed, and no window loses its focus. A seat has
/// one input method: while another one is there the keyboard can't be had so. GUI thread only.
class InputMethodGrab final : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive this.
    InputMethodGrab(CompositorConnection& connection, KeyFeed& feed);
    ~InputMethodGrab() override;

    /// Whether the compositor knows of such a thing.
    [[nodiscard]] bool offered() const { return _manager != nullptr; }

    /// Waits for the compositor. `decided` comes from in here or follows, unless end() comes first or the
    /// compositor goes.
    void begin();
    /// Gives the keyboard back.
    void end();

Q_SIGNALS:
    void decided(bool granted);
    /// Another input method has the keyboard from now on.
    void lost();

private:
    void _grabKeyboard();
    void _decide(bool granted);

    CompositorConnection& _connection;
    KeyFeed& _feed;
    zwp_input_method_manager_v2* _manager = nullptr;
    zwp_input_method_v2* _method = nullptr;
    zwp_input_method_keyboard_grab_v2* _grab = nullptr;
    bool _undecided = false;
};

} // namespace tarnwick
