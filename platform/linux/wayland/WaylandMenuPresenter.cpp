// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/WaylandMenuPresenter.h"

#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "platform/linux/keys/XkbComposition.h"
#include "platform/qt/menu/MenuTracking.h"
#include "platform/qt/menu/OpenPopUps.h"
#include "platform/qt/menu/PopUpTrigger.h"
#include "platform/qt/menu/QMenuView.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace tarnwick {

namespace {

/// The place comes after 3 to 10 ms, the keyboard after 1 to 6 ms. A button that is still down may keep the
/// pointer where it was pressed; busy compositors take their time.
constexpr auto PointerPatience = 1000ms;
constexpr auto KeyboardPatience = 250ms;
/// Applications have the keyboard again, and their items know it, after 3 to 11 ms.
constexpr auto TargetPatience = 150ms;
constexpr auto TargetStep = 3ms;
/// What takes longer to say no was busy, and tells what was so a while ago.
constexpr auto PromptAnswer = 25ms;
constexpr char LayerShell[] = "zwlr_layer_shell_v1";

/// Of a window that is a pop-up for the compositor, but takes no grab there: the toolkit takes one, and the
/// keyboard with it, for what it takes for a pop-up itself. The flags of the widget stay as they are.
void makeGrabless(QWidget& popUp)
{
    popUp.winId();
    popUp.windowHandle()->setFlag(Qt::ToolTip, true);
}

/// One of a window of ours counts, too.
bool isMenuOpen()
{
    return MenuTracking::shared().active() || QApplication::activePopupWidget();
}

} // namespace

class WaylandMenuPresenter::Expectation
{
public:
    explicit Expectation(WaylandMenuPresenter& presenter) : _presenter(&presenter)
    {
        presenter._expectation = this;
    }
    ~Expectation()
    {
        if (!_presenter || _presenter->_expectation != this)
            return;
        _presenter->_expectation = nullptr;
        _presenter->_stage.hide();
    }
    Expectation(const Expectation&) = delete;
    Expectation& operator=(const Expectation&) = delete;

private:
    QPointer<WaylandMenuPresenter> _presenter;
};

bool WaylandMenuPresenter::canShowOn(const CompositorConnection& connection)
{
    return connection.offers(LayerShell);
}

WaylandMenuPresenter::WaylandMenuPresenter(std::shared_ptr<CompositorConnection> connection,
                                           std::unique_ptr<MenuTarget> target)
    : _connection(std::move(connection)), _target(std::move(target)), _feed(_keys),
      _grab(*_connection, _feed), _focusFeed(_keys), _nudge(*_connection), _stage(_nudge),
      _desktops(_connection)
{
    connect(&MenuTracking::shared(), &MenuTracking::cancelRequested, this,
            &WaylandMenuPresenter::cancelTracking);
    connect(&_stage, &MenuStage::pressed, this, &WaylandMenuPresenter::_abandon);
    connect(&_stage, &MenuStage::lost, this, &WaylandMenuPresenter::_abandon);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* window) {
        // The last stage may still be about to lose it.
        if (std::exchange(_focused, window != nullptr) && !window && _tookKeyboard)
            _supersede();
    });
    connect(&_desktops, &PlasmaDesktops::changed, this, &WaylandMenuPresenter::_supersede);
    connect(&_grab, &InputMethodGrab::lost, this, &WaylandMenuPresenter::cancelTracking);
    connect(_connection.get(), &CompositorConnection::ended, this, &WaylandMenuPresenter::cancelTracking);
}

WaylandMenuPresenter::~WaylandMenuPresenter() = default;

std::shared_ptr<void> WaylandMenuPresenter::expectMenu()
{
    if (isMenuOpen())
        return nullptr;
    _setStage();
    return std::make_shared<Expectation>(*this);
}

bool WaylandMenuPresenter::popUpMenuPositioningItem(const std::shared_ptr<Menu>& menu,
                                                    const std::shared_ptr<MenuItem>& /*item*/,
                                                    QPointF /*location*/)
{
    if (!menu || isMenuOpen())
        return false;
    const MenuTracking::Span tracking;
    _setStage();
    _expectation = nullptr;
    _clicked = false;
    _superseded = false;
    _pressed = Qt::NoButton;
    _target->fix();
    qApp->installEventFilter(this);
    const auto choice = _show(menu);
    qApp->removeEventFilter(this);
    const bool wasTaken = hasKeyboard();
    _giveBack();
    // Not every compositor does it by itself. Who goes to another workspace would be taken back from there.
    if (wasTaken && !_superseded)
        _target->giveFocusBack();
    // What was chosen was meant for the application that was in front, as it was shown.
    const bool isTaken = choice && _waitForTarget(*choice->item, wasTaken);
    _clicked = false;
    if (!isTaken)
        return false;
    performMenuChoice(choice->menu, choice->item);
    return true;
}

void WaylandMenuPresenter::cancelTracking()
{
    if (!MenuTracking::shared().active())
        return;
    _cancelled = true;
    closeAllPopUps();
    Q_EMIT cancelled();
}

void WaylandMenuPresenter::_abandon()
{
    _cancelled = true; // one that is expected, too
    cancelTracking();
}

bool WaylandMenuPresenter::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress && watched->isWindowType()) {
        _clicked = true;
        _pressed |= static_cast<QMouseEvent*>(event)->button();
    } else if (event->type() == QEvent::MouseButtonRelease && watched->isWindowType() &&
               _release(*static_cast<QMouseEvent*>(event))) {
        return true;
    }
    return QObject::eventFilter(watched, event);
}

bool WaylandMenuPresenter::_release(const QMouseEvent& event)
{
    if (_pressed & event.button())
        return false;
    const QPoint place = event.globalPosition().toPoint();
    static_cast<void>(_drag.follow(place, true));
    if (_drag.follow(place, false) == PointerDrag::Step::Released) {
        feedDrag(QEvent::MouseMove, place);
        feedDrag(QEvent::MouseButtonRelease, place);
    }
    return true;
}

void WaylandMenuPresenter::_setStage()
{
    if (_expectation)
        return;
    _cancelled = false;
    _stage.show();
}

bool WaylandMenuPresenter::_needsKeyboard()
{
    _keys.begin();
    if (PopUpTrigger::current() == PopUpTrigger::Kind::Pointer || _grabKeyboard())
        return false;
    _target->readAhead();
    return true;
}

template <typename Sender, typename Signal>
void WaylandMenuPresenter::_waitFor(const Sender* sender, Signal signal, std::chrono::nanoseconds most)
{
    if (_cancelled)
        return;
    QEventLoop loop;
    connect(sender, signal, &loop, &QEventLoop::quit);
    connect(this, &WaylandMenuPresenter::cancelled, &loop, &QEventLoop::quit);
    QTimer::singleShot(std::chrono::ceil<std::chrono::milliseconds>(most), &loop, &QEventLoop::quit);
    loop.exec();
}

void WaylandMenuPresenter::_takeKeyboard()
{
    _focused = false;
    _focusFeed.begin();
    _tookKeyboard = true;
    _stage.takeKeyboard(_stage.pointer());
}

void WaylandMenuPresenter::_waitForKeyboard()
{
    const QDeadlineTimer patience(KeyboardPatience);
    while (_tookKeyboard && !_focused && !_cancelled && !patience.hasExpired())
        _waitFor(qGuiApp, &QGuiApplication::focusWindowChanged, patience.remainingTimeAsDuration());
}

bool WaylandMenuPresenter::_grabKeyboard()
{
    if (!_grab.offered())
        return false;
    QEventLoop loop;
    bool granted = false;
    // Queued, since it can come before the loop runs.
    connect(
        &_grab, &InputMethodGrab::decided, &loop,
        [&](bool decision) {
            granted = decision;
            loop.quit();
        },
        Qt::QueuedConnection);
    QTimer::singleShot(KeyboardPatience, &loop, &QEventLoop::quit);
    _grab.begin();
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (!granted)
        _grab.end();
    return granted;
}

void WaylandMenuPresenter::_giveBack()
{
    _keys.end();
    _grab.end();
    _focusFeed.end();
    _stage.hide();
    _tookKeyboard = false;
}

void WaylandMenuPresenter::_supersede()
{
    _superseded = true;
    _abandon();
}

std::optional<QPoint> WaylandMenuPresenter::_waitForPointer()
{
    if (!_stage.pointer()) {
        _waitFor(&_stage, &MenuStage::entered, PointerPatience);
        _nudge.stop(); // the menu may lie over the place from now on
    }
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (_cancelled || !screen)
        return std::nullopt;
    return _stage.pointer().value_or(screen->geometry().center());
}

std::optional<MenuChoice> WaylandMenuPresenter::_show(const std::shared_ptr<Menu>& menu)
{
    if (_cancelled)
        return std::nullopt;
    if (_needsKeyboard())
        _takeKeyboard();
    const auto place = _waitForPointer();
    if (!place)
        return std::nullopt;
    if (_tookKeyboard)
        _stage.takeKeyboard(place);
    QWidget* ground = _stage.groundAt(*place);
    if (!ground)
        return std::nullopt;
    QMenuView view(menu, ground); // while the keyboard is on its way
    _waitForKeyboard();
    return _cancelled ? std::nullopt : _track(view, *place);
}

std::optional<MenuChoice> WaylandMenuPresenter::_track(QMenuView& view, QPoint place)
{
    std::optional<MenuChoice> choice;
    view.setWindowPreparation(&makeGrabless);
    view.setKeyComposition(compositionOfTyping());
    QEventLoop loop;
    connect(&view, &QMenuView::itemChosen, &loop,
            [&choice](const std::shared_ptr<Menu>& chosenMenu, const std::shared_ptr<MenuItem>& chosenItem) {
                if (!choice)
                    choice = MenuChoice{chosenMenu, chosenItem};
            });
    connect(&view, &QMenu::aboutToHide, &loop, &QEventLoop::quit);
    connect(&_keys, &MenuKeys::menuModifierFlagsChanged, &view,
            [&] { view.setHeldModifiers(_keys.menuModifierFlags()); });
    view.setHeldModifiers(_keys.menuModifierFlags());
    _drag.start(place);
    if (const auto pointer = _stage.pointer())
        view.setPointerAtOpening(*pointer);
    view.openAt(place);
    _keys.open();
    if (view.isVisible())
        loop.exec();
    closeAllPopUps();
    return choice;
}

bool WaylandMenuPresenter::_waitForTarget(const MenuItem& item, bool keyboardWasTaken)
{
    const QDeadlineTimer patience(TargetPatience);
    bool isNo = true;
    // What was taken is given back once the event loop has nothing else to do.
    for (bool wait = keyboardWasTaken; !patience.hasExpired(); wait = true) {
        if (wait) {
            QEventLoop loop;
            QTimer::singleShot(TargetStep, Qt::PreciseTimer, &loop, &QEventLoop::quit);
            loop.exec();
        }
        const auto asked = std::chrono::steady_clock::now();
        // The last question, too, has time for its answer: without one it would count as a yes.
        const auto most =
            std::max<std::chrono::nanoseconds>(patience.remainingTimeAsDuration(), PromptAnswer);
        if (_target->takes(item,
                           static_cast<int>(std::chrono::ceil<std::chrono::milliseconds>(most).count())))
            return true;
        isNo = std::chrono::steady_clock::now() - asked <= PromptAnswer;
    }
    return !isNo;
}

} // namespace tarnwick

#include "moc_WaylandMenuPresenter.cpp"
