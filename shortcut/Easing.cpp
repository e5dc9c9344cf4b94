// SPDX-License-Identifier: MIT
#include "shortcut/Easing.h"

#include <cmath>
#include <numbers>

namespace tarnwick {

double SRAnimationEaseInOut(double t)
{
    return (std::sin(t * std::numbers::pi - std::numbers::pi / 2) + 1) * 0.5;
}

} // namespace tarnwick
