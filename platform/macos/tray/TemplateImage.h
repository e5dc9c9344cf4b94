// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

namespace tarnwick {

enum class Ink { Dark, Light };

/// A picture in two colours as the menu bar tints it: black where `image` has its ink, transparent elsewhere.
/// A null image stays null.
[[nodiscard]] QImage templateImage(const QImage& image, Ink ink);

} // namespace tarnwick
