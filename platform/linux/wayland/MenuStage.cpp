// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/MenuStage.h"

#include "platform/linux/wayland/PointerNudge.h"

#include <QEnterEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <LayerShellQt/Window>
#include <algorithm>
#include <chrono>
#include <utility>
#include <wayland-client.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace tarnwick {

namespace {

/// A pointer that is above a surface of ours comes to it within 3 to 10 ms, asked with a nudge.
constexpr auto PatienceAfterLeaving = 500ms;

/// It does so itself only once it has nothing else to do.
void sendWhatToolkitHolds()
{
    const auto* const wayland =
        qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QWaylandApplication>() : nullptr;
    if (wayland)
        wl_display_flush(wayland->display());
}

} // namespace

class MenuStage::Ground final : public QWidget
{
public:
    Ground(MenuStage& stage, QScreen& screen) : QWidget(nullptr, Qt::FramelessWindowHint), _stage(stage)
    {
        using Layer = LayerShellQt::Window;
        setAttribute(Qt::WA_TranslucentBackground);
        setAttribute(Qt::WA_ShowWithoutActivating);
        setScreen(&screen);
        setGeometry(screen.geometry());
        winId();
        windowHandle()->setScreen(&screen);
        _layer = Layer::get(windowHandle());
        _layer->setLayer(Layer::LayerOverlay);
        _layer->setAnchors(
            Layer::Anchors(Layer::AnchorTop | Layer::AnchorBottom | Layer::AnchorLeft | Layer::AnchorRight));
        _layer->setExclusiveZone(-1); // over panels, too
        _layer->setScope(u"menu"_s);
        _layer->setCloseOnDismissed(true);
        _layer->setScreenConfiguration(Layer::ScreenFromQWindow);
    }

    void showWithoutKeyboard()
    {
        _layer->setKeyboardInteractivity(LayerShellQt::Window::KeyboardInteractivityNone);
        show();
    }

    void takeKeyboard()
    {
        using Layer = LayerShellQt::Window;
        if (_layer->keyboardInteractivity() == Layer::KeyboardInteractivityExclusive)
            return;
        _layer->setKeyboardInteractivity(Layer::KeyboardInteractivityExclusive);
        update(); // that counts with the next picture
    }

protected:
    void enterEvent(QEnterEvent* event) override
    {
        if (_stage._pointer)
            return;
        _stage._pointer = mapToGlobal(event->position().toPoint());
        _stage._nudge.stop();
        Q_EMIT _stage.entered();
    }
    void mousePressEvent(QMouseEvent* /*event*/) override { Q_EMIT _stage.pressed(); }
    void closeEvent(QCloseEvent* event) override
    {
        QWidget::closeEvent(event);
        if (_stage._shown)
            Q_EMIT _stage.lost();
    }

private:
    MenuStage& _stage;
    LayerShellQt::Window* _layer = nullptr;
};

MenuStage::MenuStage(PointerNudge& nudge) : _nudge(nudge)
{
    _left.setSingleShot(true);
    _left.setInterval(PatienceAfterLeaving);
    connect(&_left, &QTimer::timeout, this, [this] {
        _nudge.stop();
        Q_EMIT lost();
    });
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](const QScreen* screen) {
        _follow(*screen);
        _screensChanged();
    });
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &MenuStage::_screensChanged);
    for (const QScreen* screen : QGuiApplication::screens())
        _follow(*screen);
}

MenuStage::~MenuStage()
{
    hide();
}

void MenuStage::show()
{
    if (_shown)
        return;
    _pointer.reset();
    if (std::exchange(_stale, false))
        _grounds.clear();
    if (_grounds.empty())
        for (QScreen* screen : QGuiApplication::screens())
            _grounds.push_back(std::make_unique<Ground>(*this, *screen));
    _shown = true;
    qGuiApp->installEventFilter(this);
    for (const auto& ground : _grounds)
        ground->showWithoutKeyboard();
    sendWhatToolkitHolds();
    _nudge.start();
}

void MenuStage::takeKeyboard(std::optional<QPoint> place)
{
    if (!_grounds.empty() && (place || _grounds.size() == 1))
        _groundAt(place.value_or(QPoint()))->takeKeyboard();
}

void MenuStage::hide()
{
    _shown = false;
    _left.stop();
    _nudge.stop();
    if (qGuiApp)
        qGuiApp->removeEventFilter(this);
    for (const auto& ground : _grounds)
        ground->hide();
    sendWhatToolkitHolds(); // or the next click would still be taken
}

QWidget* MenuStage::groundAt(QPoint place) const
{
    return _groundAt(place);
}

MenuStage::Ground* MenuStage::_groundAt(QPoint place) const
{
    const auto found = std::find_if(_grounds.cbegin(), _grounds.cend(),
                                    [&](const auto& ground) { return ground->geometry().contains(place); });
    if (found != _grounds.cend())
        return found->get();
    return _grounds.empty() ? nullptr : _grounds.front().get();
}

bool MenuStage::eventFilter(QObject* watched, QEvent* event)
{
    if (!_pointer || !watched->isWindowType())
        return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::Leave) {
        _left.start();
        _nudge.start();
    } else if (event->type() == QEvent::Enter) {
        _left.stop();
        _nudge.stop();
    }
    return QObject::eventFilter(watched, event);
}

void MenuStage::_follow(const QScreen& screen)
{
    // Another scale makes it another size.
    connect(&screen, &QScreen::geometryChanged, this, &MenuStage::_screensChanged);
}

void MenuStage::_screensChanged()
{
    // A menu may stand on it.
    _stale = true;
    if (std::exchange(_shown, false))
        Q_EMIT lost();
}

} // namespace tarnwick

#include "moc_MenuStage.cpp"
