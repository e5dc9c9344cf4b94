// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/input/XkbKeymap.h"
#include "platform/linux/x11/X11EventFilter.h"
#include "shortcut/KeyboardLayout.h"

#include <QList>
#include <QObject>

#include <memory>

namespace tarnwick {

/// The layout of the X server, followed by the keyboard events that Qt has asked for. Reads the map when it
/// is first asked for and after a change.
class XkbKeyboardLayout final : public QObject, public X11EventFilter, public KeyboardLayout
{
    Q_OBJECT

public:
    XkbKeyboardLayout();
    ~XkbKeyboardLayout() override;

    [[nodiscard]] std::unique_ptr<UnicodeKeyLayout> copyCurrentKeyboardInputSource() const override;
    [[nodiscard]] quint8 keyboardType() const override;
    void addSelectedKeyboardInputSourceChangedObserver(std::function<void()> changed) override;

    /// The map that types now; null without an X server.
    [[nodiscard]] std::shared_ptr<const XkbKeymap> keymap() const;

protected:
    [[nodiscard]] bool filter(std::uint8_t type, xcb_generic_event_t& event) override;

private:
    void _mapChanged();
    void _groupChanged(quint8 group);
    void _notifyLater();
    void _notify();

    quint8 _firstEvent = 0;
    mutable std::shared_ptr<XkbKeymap> _keymap;
    bool _notifying = false;
    QList<std::function<void()>> _observers;
};

} // namespace tarnwick
