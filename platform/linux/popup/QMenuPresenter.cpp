// SPDX-License-Identifier: MIT
#include "platform/linux/popup/QMenuPresenter.h"

#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "platform/linux/keys/XkbComposition.h"
#include "platform/linux/popup/X11PopUpInput.h"
#include "platform/linux/x11/ScreenSpaces.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/qt/menu/MenuTracking.h"
#include "platform/qt/menu/OpenPopUps.h"
#include "platform/qt/menu/QMenuView.h"

#include <QApplication>
#include <QCursor>
#include <QEventLoop>
#include <xcb/xfixes.h>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

constexpr QPoint OffScreen(-10, -10);
/// By then the hot key is there, which is waited for at the start.
constexpr std::chrono::milliseconds AfterTheStart(100);

/// Takes back that input passes through a window. The toolkit's own way would change the window's type, too.
void acceptInput(xcb_window_t window)
{
    xcb_xfixes_set_window_shape_region(X11Connection::shared().get(), window, XCB_SHAPE_SK_INPUT, 0, 0,
                                       XCB_XFIXES_REGION_NONE);
}

} // namespace

QMenuPresenter::QMenuPresenter()
    : _keeper(nullptr,
              Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint | Qt::WindowDoesNotAcceptFocus)
{
    _keeper.setAttribute(Qt::WA_ShowWithoutActivating);
    _keeper.setGeometry(QRect(OffScreen, QSize(1, 1)));
    _preparation.setSingleShot(true);
    connect(&_preparation, &QTimer::timeout, this, &QMenuPresenter::_prepare);
    if (X11Connection::shared())
        _preparation.start(AfterTheStart);
    connect(&MenuTracking::shared(), &MenuTracking::cancelRequested, this, &QMenuPresenter::cancelTracking);
}

QMenuPresenter::~QMenuPresenter() = default;

bool QMenuPresenter::popUpMenuPositioningItem(const std::shared_ptr<Menu>& menu,
                                              const std::shared_ptr<MenuItem>& /*item*/, QPointF location)
{
    auto& connection = X11Connection::shared();
    // A menu of a window of ours that is open counts, too.
    if (!menu || !connection || MenuTracking::shared().active() || QApplication::activePopupWidget())
        return false;
    const MenuTracking::Span tracking;
    _showKeeper();
    X11PopUpInput input(connection, static_cast<xcb_window_t>(_keeper.winId()));
    if (!input.begin())
        return false;
    const auto choice = _track(menu, location, input);
    _preparation.start(0);
    const bool sameFocus = input.end();
    // What was chosen was meant for the application that was in front.
    if (!choice || !sameFocus)
        return false;
    performMenuChoice(choice->menu, choice->item);
    return true;
}

void QMenuPresenter::cancelTracking()
{
    if (MenuTracking::shared().active())
        closeAllPopUps();
}

std::optional<MenuChoice> QMenuPresenter::_track(const std::shared_ptr<Menu>& menu, QPointF location,
                                                 X11PopUpInput& input)
{
    std::optional<MenuChoice> choice;
    const auto owned = _viewOf(menu, input);
    QMenuView& view = *owned;
    view.setKeyComposition(compositionOfTyping());
    QEventLoop loop;
    connect(&view, &QMenuView::itemChosen, &loop,
            [&choice](const std::shared_ptr<Menu>& chosenMenu, const std::shared_ptr<MenuItem>& chosenItem) {
                if (!choice)
                    choice = MenuChoice{chosenMenu, chosenItem};
            });
    connect(&view, &QMenu::aboutToHide, &loop, &QEventLoop::quit);
    _connectInput(input, view);

    const auto monitors = currentMonitors();
    view.setHeldModifiers(input.menuModifierFlagsAtStart());
    // A window manager that looks at a click first hands it on to the window that is at its place by then.
    if (!input.hasPointer())
        view.setWindowFlag(Qt::WindowTransparentForInput);
    view.openAt(toolkitPoint(pixelAt(location, monitors), monitors));
    input.typeAhead();
    if (view.isVisible())
        loop.exec();
    closeAllPopUps();

    connect(&input, &X11PopUpInput::settled, &loop, &QEventLoop::quit);
    if (!input.settle())
        loop.exec();
    return choice;
}

void QMenuPresenter::_showKeeper()
{
    if (_keeper.isVisible())
        return;
    // With these the toolkit asks the server for cursors and the buses for screen readers.
    _keeper.setCursor(Qt::ArrowCursor);
    _keeper.setAccessibleName(u"Tarnwick"_s);
    _keeper.show();
}

void QMenuPresenter::_prepare()
{
    _showKeeper();
    if (_prepared)
        return;
    _prepared = std::make_unique<QMenuView>(nullptr);
    _prepared->makeWindow();
}

std::unique_ptr<QMenuView> QMenuPresenter::_viewOf(const std::shared_ptr<Menu>& menu,
                                                   const X11PopUpInput& input)
{
    // Without the pointer the window is of another kind.
    if (!_prepared || !input.hasPointer())
        return std::make_unique<QMenuView>(menu);
    auto view = std::move(_prepared);
    view->setMenu(menu);
    return view;
}

void QMenuPresenter::_connectInput(X11PopUpInput& input, QMenuView& view)
{
    connect(&input, &X11PopUpInput::menuModifierFlagsMayHaveChanged, &view,
            [&] { view.setHeldModifiers(input.menuModifierFlags()); });
    connect(&input, &X11PopUpInput::pointerTaken, &view,
            [&view] { acceptInput(static_cast<xcb_window_t>(view.winId())); });
    connect(&input, &X11PopUpInput::lost, this, &QMenuPresenter::cancelTracking, Qt::QueuedConnection);
    connect(
        &input, &X11PopUpInput::pressedElsewhere, &view, [this, &view] { _closeWhenOutside(view); },
        Qt::QueuedConnection);
    connect(&input, &X11PopUpInput::dragged, this, [] { feedDrag(QEvent::MouseMove, QCursor::pos()); });
    connect(&input, &X11PopUpInput::dragReleased, this,
            [] { feedDrag(QEvent::MouseButtonRelease, QCursor::pos()); });
}

void QMenuPresenter::_closeWhenOutside(const QMenuView& view)
{
    if (!view.coversGlobal(QCursor::pos()))
        cancelTracking();
}

} // namespace tarnwick

#include "moc_QMenuPresenter.cpp"
