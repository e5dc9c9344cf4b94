// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/WaylandMenuPresenter.h"

#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "platform/qt/menu/MenuChoice.h"
#include "platform/qt/menu/MenuTracking.h"
#include "platform/qt/menu/QMenuView.h"

#include <QApplication>
#include <QEventLoop>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <chrono>

using namespace std::chrono_literals;

namespace tarnwick {

namespace {

/// The place comes after 3 to 10 ms, the keyboard after 3 to 6 ms.
constexpr auto pointerPatience = 100ms;
constexpr auto keyboardPatience = 50ms;
constexpr char layerShell[] = "zwlr_layer_shell_v1";

class Tracking
{
public:
    Tracking() { MenuTracking::shared().begin(); }
    ~Tracking() { MenuTracking::shared().end(); }
    Tracking(const Tracking&) = delete;
    Tracking& operator=(const Tracking&) = delete;
};

void closeAllPopUps()
{
    while (QWidget* popUp = QApplication::activePopupWidget())
        if (!popUp->close())
            popUp->hide();
}

/// Of a window that is a pop-up for the compositor, but takes no grab there: the toolkit takes one, and the
/// keyboard with it, for what it takes for a pop-up itself. The flags of the widget stay as they are.
void makeGrabless(QWidget& popUp)
{
    popUp.winId();
    popUp.windowHandle()->setFlag(Qt::ToolTip, true);
}

quint64 menuModifierFlagsOf(Qt::KeyboardModifiers modifiers)
{
    quint64 flags = 0;
    flags |= modifiers.testFlag(Qt::ShiftModifier) ? 1U << 17 : 0;
    flags |= modifiers.testFlag(Qt::ControlModifier) ? 1U << 18 : 0;
    flags |= modifiers.testFlag(Qt::AltModifier) ? 1U << 19 : 0;
    flags |= modifiers.testFlag(Qt::MetaModifier) ? 1U << 20 : 0;
    return flags;
}

} // namespace

bool WaylandMenuPresenter::canShowOn(const CompositorConnection& connection)
{
    return connection.offers(layerShell);
}

WaylandMenuPresenter::WaylandMenuPresenter(CompositorConnection& connection)
    : _grab(connection, _feed), _nudge(connection), _stage(_nudge)
{
    connect(&MenuTracking::shared(), &MenuTracking::cancelRequested, this,
            &WaylandMenuPresenter::cancelTracking);
    connect(&_stage, &MenuStage::pressed, this, &WaylandMenuPresenter::cancelTracking);
    connect(&_stage, &MenuStage::lost, this, &WaylandMenuPresenter::cancelTracking);
}

WaylandMenuPresenter::~WaylandMenuPresenter() = default;

bool WaylandMenuPresenter::popUpMenuPositioningItem(const std::shared_ptr<Menu>& menu,
                                                    const std::shared_ptr<MenuItem>& /*item*/,
                                                    QPointF /*location*/)
{
    if (!menu || MenuTracking::shared().active() || QApplication::activePopupWidget())
        return false;
    const Tracking tracking;
    _stage.show(_takeKeyboard());
    const auto choice = _track(menu);
    _grab.end();
    _stage.hide();
    if (!choice)
        return false;
    performMenuChoice(choice->menu, choice->item);
    return true;
}

void WaylandMenuPresenter::cancelTracking()
{
    if (MenuTracking::shared().active())
        closeAllPopUps();
}

MenuStage::Keyboard WaylandMenuPresenter::_takeKeyboard()
{
    if (!_grab.offered())
        return MenuStage::Keyboard::Taken;
    QEventLoop loop;
    bool granted = false;
    connect(&_grab, &InputMethodGrab::decided, &loop, [&](bool decision) {
        granted = decision;
        loop.quit();
    });
    QTimer::singleShot(keyboardPatience, &loop, &QEventLoop::quit);
    _grab.begin();
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (!granted)
        _grab.end();
    return granted ? MenuStage::Keyboard::Left : MenuStage::Keyboard::Taken;
}

QPoint WaylandMenuPresenter::_waitForPointer()
{
    if (!_stage.pointer()) {
        QEventLoop loop;
        connect(&_stage, &MenuStage::entered, &loop, &QEventLoop::quit);
        connect(&_stage, &MenuStage::lost, &loop, &QEventLoop::quit);
        QTimer::singleShot(pointerPatience, &loop, &QEventLoop::quit);
        loop.exec();
    }
    const QScreen* screen = QGuiApplication::primaryScreen();
    return _stage.pointer().value_or(screen ? screen->geometry().center() : QPoint());
}

std::optional<WaylandMenuPresenter::Choice> WaylandMenuPresenter::_track(const std::shared_ptr<Menu>& menu)
{
    std::optional<Choice> choice;
    const QPoint place = _waitForPointer();
    QMenuView view(menu, _stage.groundAt(place));
    view.setWindowPreparation(&makeGrabless);
    QEventLoop loop;
    connect(&view, &QMenuView::itemChosen, &loop,
            [&choice](const std::shared_ptr<Menu>& chosenMenu, const std::shared_ptr<MenuItem>& chosenItem) {
                if (!choice)
                    choice = Choice{chosenMenu, chosenItem};
            });
    connect(&view, &QMenu::aboutToHide, &loop, &QEventLoop::quit);
    connect(&_feed, &KeyFeed::modifiersChanged, &view,
            [&] { view.setHeldModifiers(menuModifierFlagsOf(_feed.modifiers())); });
    view.openAt(place);
    if (view.isVisible())
        loop.exec();
    closeAllPopUps();
    return choice;
}

} // namespace tarnwick

#include "moc_WaylandMenuPresenter.cpp"
