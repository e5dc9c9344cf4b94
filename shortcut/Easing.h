// SPDX-License-Identifier: MIT
#pragma once

namespace tarnwick {

/// Half a cosine wave: from 0 at 0 by 0.5 at 0.5 to 1 at 1.
[[nodiscard]] double SRAnimationEaseInOut(double t);

} // namespace tarnwick
