// SPDX-License-Identifier: MIT
#pragma once

#include "app/HotKeys.h"
#include "platform/linux/front/TriggerOrder.h"
#include "platform/linux/input/X11ModifierMap.h"
#include "platform/linux/input/X11RawInput.h"
#include "platform/linux/x11/X11EventFilter.h"
#include "platform/qt/menu/HeldKeys.h"

#include <QObject>
#include <QTimer>
#include <xcb/xproto.h>

#include <map>
#include <memory>
#include <vector>

namespace tarnwick {

class X11Connection;
class X11KeyGrab;

/// Hot keys as passive grabs of physical keys on Qt's own X connection, so that the pop-up can take the
/// keyboard over while the hot key is still down. Without an X server nothing can be registered. A press
/// while a menu is open is dropped, and so are the repeats of a key that is held down, even if it was before
/// it was registered.
class X11HotKeys final : public QObject, public X11EventFilter, public HotKeys
{
    Q_OBJECT

public:
    /// `order` is asked at each press, and hands it on.
    explicit X11HotKeys(TriggerOrder order = fromEventLoop);
    ~X11HotKeys() override;

    void installEventHandler(std::function<qint32()> handler) override;
    /// Registering a combination that is registered already is refused, too.
    std::optional<EventHotKeyRef> registerEventHotKey(quint32 keyCode, quint32 modifiers, EventHotKeyID id,
                                                      quint32 options) override;
    bool unregisterEventHotKey(EventHotKeyRef hotKey) override;

    /// Whether another client holds the combination: it is grabbed and given back at once. False for one of
    /// ours, and for keys that nobody can grab.
    [[nodiscard]] bool heldElsewhere(quint32 keyCode, quint32 modifiers) const;

protected:
    [[nodiscard]] bool filter(std::uint8_t type, xcb_generic_event_t& event) override;

private:
    [[nodiscard]] bool _isRegistered(quint8 keyCode, quint16 state) const;
    void _watchOver();
    void _keyPressed(const xcb_key_press_event_t& event);
    void _ignoreUntilUp(quint8 keyCode);
    void _menuEnded();
    void _forgetHeldKeyWhenUp();
    void _expectNoRelease();
    void _offerPress();
    void _callHandlers() const;
    void _followKeyboardMap();

    TriggerOrder _order;
    X11Connection& _connection;
    X11ModifierMap _modifierMap;
    std::map<EventHotKeyRef, std::unique_ptr<X11KeyGrab>> _grabs;
    EventHotKeyRef _lastRef = 0;
    std::vector<std::function<qint32()>> _handlers;
    HeldKeys _heldKeys; ///< the one that fired last, until it is up
    std::optional<quint8> _firedKey;
    quint32 _firedAt = 0;         ///< in the server's time
    bool _offerWhenEnded = false; ///< a press has come after a menu had closed, before its call returned
    std::optional<X11RawInput::KeyWatch> _keyWatch; ///< while the key is held after its menu has closed
    QTimer _mapChangeTimer;
};

} // namespace tarnwick
