// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>

namespace tarnwick {

/// Whether the pointer has been moved since the menu opened. Menus open under a pointer that rests, and come
/// under it; places of different windows differ by what was rounded: small ways are none.
class PointerTravel
{
public:
    static constexpr int Threshold = 10; ///< toolkit pixels, along both axes together

    explicit PointerTravel(QPoint start) : _start(start), _last(start) {}

    /// It is at `place` now: whether it has been moved away from the start, now or before.
    bool follow(QPoint place)
    {
        _last = place;
        _away = _away || _isFar(place, _start);
        return _away;
    }
    /// The same for a window that has come under it; whether that was by a motion.
    bool enter(QPoint place)
    {
        const bool moved = _isFar(place, _last);
        return follow(place) && moved;
    }

private:
    [[nodiscard]] static bool _isFar(QPoint one, QPoint other)
    {
        return (one - other).manhattanLength() > Threshold;
    }

    QPoint _start;
    QPoint _last;
    bool _away = false;
};

} // namespace tarnwick
