// SPDX-License-Identifier: MIT
#pragma once

#include "mouse/EventTaps.h"
#include "mouse/QMMouseHotKeyDelegate.h"

#include <QString>

namespace tarnwick {

/// Notification names for whoever wants to tell of mouse buttons; nothing here posts them.
inline const QString RightMouseButtonDownNotification = QStringLiteral("RightMouseButtonDown");
inline const QString RightMouseButtonUpNotification = QStringLiteral("RightMouseButtonUp");
inline const QString MouseButtonDownNotification = QStringLiteral("MouseButtonDown");
inline const QString MouseButtonUpNotification = QStringLiteral("MouseButtonUp");

class QMMouseHotKey;

/// The tap's callback. Presses are only watched: `event` goes on to the application under the mouse. Only the
/// system's notice that it has switched the tap off ends here.
const TappedEvent* mouseCGEventCallback(EventTapRef proxy, quint32 type, const TappedEvent* event,
                                        QMMouseHotKey* mouseHotKey);

/// Turns a press of an extra mouse button, anywhere on the desktop, into a call to its delegate. The process
/// has one: its tap is shared by all instances. Must live as long as events may come. GUI thread only.
class QMMouseHotKey
{
public:
    QMMouseHotKey() = default;
    QMMouseHotKey(const QMMouseHotKey&) = delete;
    QMMouseHotKey& operator=(const QMMouseHotKey&) = delete;

    /// Not owned. Presses that come before it is set are dropped.
    void setDelegate(QMMouseHotKeyDelegate* delegate) { _delegate = delegate; }
    [[nodiscard]] QMMouseHotKeyDelegate* delegate() const { return _delegate; }

    /// Without the tap there is no point in going on: when the system refuses it, writes so to standard error
    /// and ends the process with status 1.
    void setupMouseUpEventTap();
    /// Takes the tap away for good.
    void killTap();
    void enableTap();
    void disableTap();

    /// Everything of the main interface is connected: starts tapping.
    void awakeFromNib();

private:
    friend const TappedEvent* mouseCGEventCallback(EventTapRef, quint32, const TappedEvent*, QMMouseHotKey*);
    void _mouseButtonActioned(quint64 code);

    QMMouseHotKeyDelegate* _delegate = nullptr;
};

} // namespace tarnwick
