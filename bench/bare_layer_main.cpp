// SPDX-License-Identifier: MIT
// What any program with the toolkit takes that pops a menu up at the pointer in a compositor with layers:
//   bench_bare_layer
// has the name example.quorlane.Bare on the session bus. Its method PopUp shows a surface over the whole
// screen, and an empty menu where the pointer comes in; the keyboard stays where it is. Close takes both
// away. Writes "ready" when it can be called.
#include "platform/linux/wayland/CompositorConnection.h"
#include "platform/linux/wayland/PointerNudge.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QEnterEvent>
#include <QMenu>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <LayerShellQt/Window>
#include <cstdio>
#include <memory>

using namespace Qt::StringLiterals;
using namespace tarnwick;

namespace {

/// Without a size a menu is not shown at all.
class EmptyMenu final : public QMenu
{
public:
    using QMenu::QMenu;
    [[nodiscard]] QSize sizeHint() const override { return {100, 20}; }
};

class Ground final : public QWidget
{
public:
    /// sway tells where the pointer is only when it moves.
    explicit Ground(PointerNudge& nudge) : QWidget(nullptr, Qt::FramelessWindowHint), _nudge(nudge)
    {
        using Layer = LayerShellQt::Window;
        setAttribute(Qt::WA_TranslucentBackground);
        setGeometry(QGuiApplication::primaryScreen()->geometry());
        winId();
        auto* layer = Layer::get(windowHandle());
        layer->setLayer(Layer::LayerOverlay);
        layer->setAnchors(
            Layer::Anchors(Layer::AnchorTop | Layer::AnchorBottom | Layer::AnchorLeft | Layer::AnchorRight));
        layer->setExclusiveZone(-1);
        layer->setKeyboardInteractivity(Layer::KeyboardInteractivityNone);
    }

    void popUp()
    {
        show();
        _nudge.start();
    }

    void takeAway()
    {
        _menu.reset();
        hide();
    }

protected:
    void enterEvent(QEnterEvent* event) override
    {
        if (_menu)
            return;
        _nudge.stop();
        _menu = std::make_unique<EmptyMenu>(this);
        _menu->winId();
        _menu->windowHandle()->setFlag(Qt::ToolTip, true); // takes no grab
        const QPoint place = mapToGlobal(event->position().toPoint());
        QTimer::singleShot(0, _menu.get(), [this, place] { _menu->popup(place); });
    }

private:
    PointerNudge& _nudge;
    std::unique_ptr<EmptyMenu> _menu;
};

class Calls final : public QDBusVirtualObject
{
public:
    explicit Calls(Ground& ground) : _ground(ground) {}

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& /*connection*/) override
    {
        if (message.member() == "PopUp"_L1)
            _ground.popUp();
        else if (message.member() == "Close"_L1)
            _ground.takeAway();
        else
            return false;
        return true;
    }

private:
    Ground& _ground;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const auto compositor = CompositorConnection::open();
    if (!compositor) {
        std::fputs("bench_bare_layer: no compositor\n", stderr);
        return 1;
    }
    PointerNudge nudge(*compositor);
    Ground ground(nudge);
    Calls calls(ground);
    auto bus = QDBusConnection::sessionBus();
    if (!bus.registerVirtualObject(u"/bare"_s, &calls) || !bus.registerService(u"example.quorlane.Bare"_s)) {
        std::fputs("bench_bare_layer: no session bus\n", stderr);
        return 1;
    }
    std::puts("ready");
    std::fflush(stdout);
    return QApplication::exec();
}
