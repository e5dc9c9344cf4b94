// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/input/X11ModifierMap.h"
#include "platform/linux/keys/XkbKeymap.h"
#include "platform/linux/x11/X11EventFilter.h"

#include <QObject>

#include <memory>
#include <optional>

namespace tarnwick {

/// What the keys of the X server give, and which of them are modifiers. Read when it is first asked for, and
/// anew after a change, by the events that the toolkit has asked for. GUI thread only.
class X11KeyboardMap final : public QObject, public X11EventFilter
{
    Q_OBJECT

public:
    /// Of the toolkit's connection.
    static X11KeyboardMap& shared();
    ~X11KeyboardMap() override;

    /// With the group that types now; null without an X server. Whoever holds it keeps what it was.
    [[nodiscard]] std::shared_ptr<const XkbKeymap> keymap();
    /// Without any key where the server tells nothing.
    [[nodiscard]] const X11ModifierMap& modifiers();

Q_SIGNALS:
    /// The map is another one. Comes from inside the native event filter, several times for one change:
    /// receivers must not run an event loop.
    void changed();
    /// The same map, but another group of it types. Comes in the same way.
    void groupChanged();

protected:
    [[nodiscard]] bool filter(std::uint8_t type, xcb_generic_event_t& event) override;

private:
    X11KeyboardMap();
    void _mapChanged();
    void _groupIs(quint8 group);

    quint8 _xkbFirstEvent = 0;
    std::shared_ptr<const XkbKeymap> _keymap;
    std::optional<X11ModifierMap> _modifiers;
};

} // namespace tarnwick
