// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace tarnwick {

/// The top left corner of a pop-up of `size` that is asked for at `corner`: there when it fits on `screen`,
/// else flipped to the other side of that point, left, upward or both; and on the screen in any case, with
/// its top left corner at least.
[[nodiscard]] QPoint popUpPosition(QPoint corner, QSize size, const QRect& screen);

/// The top left corner nearest to `corner` with which a window of that size is on the screen, or as much of
/// its beginning as fits.
[[nodiscard]] QPoint shiftedInto(QPoint corner, QSize size, const QRect& screen);

} // namespace tarnwick
