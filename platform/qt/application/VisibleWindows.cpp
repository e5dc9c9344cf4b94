// SPDX-License-Identifier: MIT
#include "platform/qt/application/VisibleWindows.h"

#include <QApplication>
#include <QWidget>

#include <algorithm>

namespace tarnwick {

bool anyWindowVisible()
{
    const auto windows = QApplication::topLevelWidgets();
    return std::any_of(windows.cbegin(), windows.cend(), [](const QWidget* window) {
        return window->isVisible() && window->windowType() == Qt::Window;
    });
}

} // namespace tarnwick
