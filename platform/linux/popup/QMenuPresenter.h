// SPDX-License-Identifier: MIT
#pragma once

#include "menu/MenuPresenter.h"
#include "platform/qt/menu/MenuChoice.h"

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <optional>

namespace tarnwick {

class QMenuView;
class X11PopUpInput;

/// Shows menus as toolkit menus while the application in front keeps its keyboard focus. Needs a toolkit that
/// grabs nothing by itself: see QtArguments.
class QMenuPresenter final : public QObject, public MenuPresenter
{
    Q_OBJECT

public:
    QMenuPresenter();
    ~QMenuPresenter() override;

    bool popUpMenuPositioningItem(const std::shared_ptr<Menu>& menu, const std::shared_ptr<MenuItem>& item,
                                  QPointF location) override;
    void cancelTracking() override;

private:
    [[nodiscard]] std::optional<MenuChoice> _track(const std::shared_ptr<Menu>& menu, QPointF location,
                                                   X11PopUpInput& input);
    [[nodiscard]] std::unique_ptr<QMenuView> _viewOf(const std::shared_ptr<Menu>& menu,
                                                     const X11PopUpInput& input);
    void _showKeeper();
    /// Makes what takes its time and is the same for each pop-up: a window takes as long as all the rest.
    void _prepare();
    void _connectInput(X11PopUpInput& input, QMenuView& view);
    void _closeWhenOutside(const QMenuView& view);

    QWidget _keeper;                      ///< receives keys and pointer events for the pop-up; off the screen
    std::unique_ptr<QMenuView> _prepared; ///< for the next pop-up; null while there is none
    QTimer _preparation;
};

} // namespace tarnwick
