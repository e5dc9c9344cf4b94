// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QPoint>

namespace tarnwick {

/// Closes each pop-up of the toolkit that is open, the innermost first.
void closeAllPopUps();

/// Hands a place of the pointer (toolkit coordinates) on to the innermost one as motion with a button down,
/// or as that button's release.
void feedDrag(QEvent::Type type, QPoint place);

} // namespace tarnwick
