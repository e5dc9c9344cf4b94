// SPDX-License-Identifier: MIT
#include "platform/qt/menu/PointerDrag.h"

#include <utility>

namespace tarnwick {

PointerDrag::Step PointerDrag::follow(QPoint pixel, bool down)
{
    if (!down)
        return std::exchange(_dragging, false) ? Step::Released : Step::None;
    _dragging = _dragging || (pixel - _start).manhattanLength() > Threshold;
    return _dragging ? Step::Moved : Step::None;
}

} // namespace tarnwick
