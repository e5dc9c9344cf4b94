// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/SharedPort.h"

#include <QImage>

#include <memory>

namespace tarnwick {

class Menu;

/// One item in the desktop's status area; it is taken out when destroyed.
class StatusItem
{
public:
    virtual ~StatusItem() = default;
    virtual void setHighlightMode(bool highlight) = 0;
    virtual void setMenu(const std::shared_ptr<Menu>& menu) = 0;
    /// Null images are allowed: the item is shown without one.
    virtual void setImage(const QImage& image) = 0;
    virtual void setAlternateImage(const QImage& image) = 0;
};

/// The desktop's status area (the tray). An item that is made before the area exists appears with it. GUI
/// thread only.
class StatusBar : public SharedPort<StatusBar>
{
public:
    static StatusBar& systemStatusBar() { return shared(); }
    virtual ~StatusBar() = default;

    static constexpr double VariableStatusItemLength = -1;

    [[nodiscard]] virtual std::shared_ptr<StatusItem> statusItemWithLength(double length) = 0;
    virtual void removeStatusItem(const std::shared_ptr<StatusItem>& item) = 0;
};

} // namespace tarnwick
