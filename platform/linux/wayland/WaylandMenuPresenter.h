// SPDX-License-Identifier: MIT
#pragma once

#include "menu/MenuPresenter.h"
#include "platform/linux/wayland/CompositorConnection.h"
#include "platform/linux/wayland/InputMethodGrab.h"
#include "platform/linux/wayland/KeyFeed.h"
#include "platform/linux/wayland/MenuStage.h"
#include "platform/linux/wayland/PointerNudge.h"

#include <QObject>

namespace tarnwick {

class QMenuView;

/// Shows menus as toolkit menus on a stage over everything, at the pointer: only then is its place known, so
/// that the one that is asked for is not looked at. Keys come to the menu while the application in front
/// keeps its focus, where the compositor lets us have them so; else the stage takes the keyboard.
class WaylandMenuPresenter final : public QObject, public MenuPresenter
{
    Q_OBJECT

public:
    /// Whether the compositor lets programs put surfaces over all others.
    [[nodiscard]] static bool canShowOn(const CompositorConnection& connection);

    /// `connection` must outlive this.
    explicit WaylandMenuPresenter(CompositorConnection& connection);
    ~WaylandMenuPresenter() override;

    bool popUpMenuPositioningItem(const std::shared_ptr<Menu>& menu, const std::shared_ptr<MenuItem>& item,
                                  QPointF location) override;
    void cancelTracking() override;

private:
    struct Choice
    {
        std::shared_ptr<Menu> menu;
        std::shared_ptr<MenuItem> item;
    };

    [[nodiscard]] std::optional<Choice> _track(const std::shared_ptr<Menu>& menu);
    [[nodiscard]] MenuStage::Keyboard _takeKeyboard();
    [[nodiscard]] QPoint _waitForPointer();

    KeyFeed _feed;
    InputMethodGrab _grab;
    PointerNudge _nudge;
    MenuStage _stage;
};

} // namespace tarnwick
