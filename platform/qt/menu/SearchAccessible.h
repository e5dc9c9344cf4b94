// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace tarnwick {

/// Has menus that are searched read by screen readers as what they are then: a field, a list of rows and the
/// number of them. Once is enough.
void makeSearchAccessible();

/// What stands in the place of `object` is another thing from now on: screen readers forget what they know
/// of it. `stays`: on the screen.
void beAnotherAccessible(QWidget& object, bool stays);

} // namespace tarnwick
