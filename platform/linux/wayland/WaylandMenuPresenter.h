// SPDX-License-Identifier: MIT
#pragma once

#include "menu/MenuPresenter.h"
#include "platform/linux/wayland/CompositorConnection.h"
#include "platform/linux/wayland/FocusKeyFeed.h"
#include "platform/linux/wayland/InputMethodGrab.h"
#include "platform/linux/wayland/KeyFeed.h"
#include "platform/linux/wayland/MenuStage.h"
#include "platform/linux/wayland/MenuTarget.h"
#include "platform/linux/wayland/PlasmaDesktops.h"
#include "platform/linux/wayland/PointerNudge.h"
#include "platform/qt/menu/MenuChoice.h"
#include "platform/qt/menu/MenuKeys.h"
#include "platform/qt/menu/PointerDrag.h"

#include <QMouseEvent>
#include <QObject>

#include <chrono>
#include <memory>
#include <optional>

namespace tarnwick {

class QMenuView;

/// Shows menus as toolkit menus on a stage over everything, at the pointer: only then is its place known, so
/// that the one that is asked for is not looked at. Keys come to the menu while the application in front
/// keeps its focus, where the compositor lets us have them so; else the stage takes the keyboard, after all
/// that the menus show has been read. A menu that is opened with the pointer leaves the keyboard where it is.
/// The stage comes first: the compositor needs some time to put it up and to tell where the pointer is, in
/// which everything else is done.
class WaylandMenuPresenter final : public QObject, public MenuPresenter
{
    Q_OBJECT

public:
    /// Whether the compositor lets programs put surfaces over all others.
    [[nodiscard]] static bool canShowOn(const CompositorConnection& connection);

    /// What `target` uses must outlive this.
    WaylandMenuPresenter(std::shared_ptr<CompositorConnection> connection,
                         std::unique_ptr<MenuTarget> target);
    ~WaylandMenuPresenter() override;

    /// Sets the stage for a menu that is likely to be asked for at once. Without one it is taken away again
    /// when what is given goes; null when there is nothing to do, since a menu is open.
    [[nodiscard]] std::shared_ptr<void> expectMenu();

    bool popUpMenuPositioningItem(const std::shared_ptr<Menu>& menu, const std::shared_ptr<MenuItem>& item,
                                  QPointF location) override;
    void cancelTracking() override;

    /// Whether no other window has the keyboard now because of a menu of ours: the stage has it, or was
    /// clicked, or the menu was, which is enough for some compositors.
    [[nodiscard]] bool hasKeyboard() const { return _tookKeyboard || _clicked; }

Q_SIGNALS:
    /// Whoever shows something of a menu is to end that.
    void cancelled();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Expectation;

    void _setStage();
    void _abandon();
    [[nodiscard]] std::optional<MenuChoice> _show(const std::shared_ptr<Menu>& menu);
    [[nodiscard]] std::optional<MenuChoice> _track(QMenuView& view, QPoint place);
    [[nodiscard]] bool _grabKeyboard();
    /// Whether the button was down when the menu opened: its release is nobody's but ours.
    [[nodiscard]] bool _release(const QMouseEvent& event);
    /// Whether keys come to the menu only when the stage takes the keyboard: then all has been read for that.
    [[nodiscard]] bool _needsKeyboard();
    void _takeKeyboard();
    /// What has been taken comes a little later, and keys would go elsewhere until then.
    void _waitForKeyboard();
    /// Returns early when the menu is not to open any more.
    template <typename Sender, typename Signal>
    void _waitFor(const Sender* sender, Signal signal, std::chrono::nanoseconds most);
    void _giveBack();
    /// The compositor has gone on to something else than the application that the menu is for.
    void _supersede();
    /// Nothing when the menu is not to open any more.
    [[nodiscard]] std::optional<QPoint> _waitForPointer();
    /// Whether the application that the menu was for takes the choice: it has to be in front again, or still.
    /// Of one that is too busy to say it nobody knows; that counts as yes.
    [[nodiscard]] bool _waitForTarget(const MenuItem& item, bool keyboardWasTaken);

    std::shared_ptr<CompositorConnection> _connection;
    std::unique_ptr<MenuTarget> _target;
    MenuKeys _keys;
    KeyFeed _feed;
    InputMethodGrab _grab;
    FocusKeyFeed _focusFeed;
    PointerNudge _nudge;
    MenuStage _stage;
    PlasmaDesktops _desktops;
    PointerDrag _drag;
    Qt::MouseButtons _pressed;                 ///< since the menu was asked for
    const Expectation* _expectation = nullptr; ///< the last one, while no menu has come
    bool _tookKeyboard = false;
    bool _clicked = false;
    bool _focused = false;    ///< a window of ours has the keyboard
    bool _superseded = false; ///< see _supersede()
    bool _cancelled = false;
};

} // namespace tarnwick
