// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QtGlobal>

#include <memory>

namespace tarnwick {

class X11Connection;
class X11ModifierMap;

/// A key combination of ours wherever the focus is: passive grabs of one physical key on the root window with
/// every combination of the lock keys. The server drops none of them by itself; destroying the object gives
/// them back. GUI thread only.
class X11KeyGrab
{
public:
    /// `eventModifiers` as in hot keys (0x100 Command ...). Null when somebody else holds one of the
    /// combinations, or the keyboard lacks one of the modifiers; nothing stays grabbed then.
    [[nodiscard]] static std::unique_ptr<X11KeyGrab> take(X11Connection& connection,
                                                          const X11ModifierMap& modifierMap, quint8 keyCode,
                                                          quint32 eventModifiers);
    ~X11KeyGrab();
    X11KeyGrab(const X11KeyGrab&) = delete;
    X11KeyGrab& operator=(const X11KeyGrab&) = delete;

    [[nodiscard]] quint8 keyCode() const { return _keyCode; }
    /// Whether a press of the key with this modifier state is the combination.
    [[nodiscard]] bool matches(quint8 keyCode, quint16 state, const X11ModifierMap& modifierMap) const;

    /// The modifier states that are grabbed: the combination with the lock keys.
    [[nodiscard]] const QList<quint16>& states() const { return _grabbed; }

    /// After the keyboard map has changed: grabs what is missing and gives back what is in excess.
    void follow(const X11ModifierMap& modifierMap);

private:
    X11KeyGrab(X11Connection& connection, quint8 keyCode, quint32 eventModifiers);
    [[nodiscard]] QList<quint16> _wanted(const X11ModifierMap& modifierMap) const;
    [[nodiscard]] bool _grab(const QList<quint16>& states);
    void _ungrab(const QList<quint16>& states) const;

    X11Connection& _connection;
    quint8 _keyCode;
    quint32 _eventModifiers;
    QList<quint16> _grabbed;
};

} // namespace tarnwick
