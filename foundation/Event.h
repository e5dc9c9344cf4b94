// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QString>
#include <QtGlobal>

namespace tarnwick {

/// The modifier bits of Event::modifierFlags, of hot-key settings and of menu items' masks. The values are
/// stored in settings and archives.
enum ModifierFlag : quint64 {
    ShiftKeyMask = 0x20000,
    ControlKeyMask = 0x40000,
    AlternateKeyMask = 0x80000,
    CommandKeyMask = 0x100000,
    FunctionKeyMask = 0x800000,
};

/// One user event, as the platform's own kind of event is described: the numbers are the platform's.
struct Event
{
    enum class Type : quint32 {
        LeftMouseDown = 1,
        LeftMouseUp = 2,
        RightMouseDown = 3,
        RightMouseUp = 4,
        MouseMoved = 5,
        LeftMouseDragged = 6,
        RightMouseDragged = 7,
        MouseEntered = 8,
        MouseExited = 9,
        KeyDown = 10,
        KeyUp = 11,
        FlagsChanged = 12,
        OtherMouseDown = 25,
        OtherMouseUp = 26,
        OtherMouseDragged = 27,
    };

    Type type = Type::MouseMoved;
    quint64 modifierFlags = 0;           ///< ModifierFlag bits held, after the event
    QPointF locationInWindow;            ///< points, origin at the window's top left, for mouse events
    quint16 keyCode = 0;                 ///< virtual key code, for key events
    QString characters;                  ///< what the key types, U+F700 and up for function and arrow keys
    QString charactersIgnoringModifiers; ///< the same with every modifier but Shift left out
};

} // namespace tarnwick
