// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

#include <utility>

namespace tarnwick {

/// The keys that were pressed before the pop-up was there to take them. Once it is there they are sent to it,
/// and the system brings each of them back as any key; a key that is pressed in between goes behind them.
template <typename Key>
class TypeAhead
{
public:
    TypeAhead() = default;
    explicit TypeAhead(QList<Key> keys) : _waiting(std::move(keys)) {}

    /// Those that wait, in order; none wait afterwards.
    [[nodiscard]] QList<Key> take() { return std::exchange(_waiting, {}); }

    /// A key was sent to the pop-up.
    void sent() { ++_onTheWay; }
    /// A key has come for the pop-up. True when it is one that was sent.
    [[nodiscard]] bool arrives()
    {
        if (!isOnTheWay())
            return false;
        --_onTheWay;
        return true;
    }
    /// Whether a key that comes now has to go behind others.
    [[nodiscard]] bool isOnTheWay() const { return _onTheWay > 0; }

private:
    QList<Key> _waiting;
    int _onTheWay = 0;
};

} // namespace tarnwick
