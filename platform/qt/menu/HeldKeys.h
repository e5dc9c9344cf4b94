// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QList>
#include <QtGlobal>

#include <optional>

namespace tarnwick {

/// Tells the repeats of keys that are held down from new presses. A system that makes repeats reports each as
/// a release and a press of one time. Plain data; key codes and times are the system's.
class HeldKeys
{
public:
    void hold(quint8 keyCode) { _keys.insert(keyCode, std::nullopt); }
    [[nodiscard]] QList<quint8> keys() const { return _keys.keys(); }

    /// A release was reported, perhaps that of a repeat.
    void released(quint8 keyCode, quint32 time);
    /// The key is up for certain.
    void up(quint8 keyCode) { _keys.remove(keyCode); }
    void forgetAll() { _keys.clear(); }

    /// A press was reported. True when it is new: the key is no longer held then.
    [[nodiscard]] bool pressedAnew(quint8 keyCode, quint32 time);

private:
    QHash<quint8, std::optional<quint32>> _keys; ///< with the time of a release
};

} // namespace tarnwick
