// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

namespace tarnwick {

/// Two colours that run into each other along an angle.
struct Gradient
{
    QColor starting;
    QColor ending;
};

} // namespace tarnwick
