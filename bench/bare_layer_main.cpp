// SPDX-License-Identifier: MIT
// Tarnwick as it is, and beside it, in the same process, what any program with the toolkit takes that pops a
// menu up at the pointer in a compositor with layers:
//   bench_bare_layer
// has the name example.quorlane.Bare on the session bus besides its own. The method PopUp of that shows a
// surface over the whole screen, and an empty menu where the pointer comes in; the keyboard stays where it
// is. Close takes both away.
#include "app/Desktop.h"
#include "app/MainInterface.h"
#include "app/Translations.h"
#include "platform/linux/wayland/CompositorConnection.h"
#include "platform/linux/wayland/PointerNudge.h"
#include "prefs/PreferencesWindowController.h"

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
#include <memory>
#include <utility>

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

/// Shows it when it is asked to on the session bus.
class BareLayer final : public QDBusVirtualObject
{
public:
    /// Ends the process where nobody can ask.
    explicit BareLayer(std::unique_ptr<CompositorConnection> compositor) : _compositor(std::move(compositor))
    {
        auto bus = QDBusConnection::sessionBus();
        if (!bus.registerVirtualObject(u"/bare"_s, this) || !bus.registerService(u"example.quorlane.Bare"_s))
            qFatal("bench_bare_layer: no session bus");
    }

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
    std::unique_ptr<CompositorConnection> _compositor;
    PointerNudge _nudge{*_compositor};
    Ground _ground{_nudge};
};

} // namespace

int main(int argc, char** argv)
{
    const Desktop desktop = openDesktop(argc, argv);
    desktop.makeShared();
    if (desktop.session->handedOverToRunningInstance())
        return 1;
    const Translations translations;
    AppDelegate::initialize();
    std::unique_ptr<MainInterface> interface;
    std::unique_ptr<BareLayer> bare;
    return desktop.session->run([&] {
        interface =
            std::make_unique<MainInterface>([] { return std::make_unique<PreferencesWindowController>(); });
        interface->finishLaunching();
        auto compositor = CompositorConnection::open();
        if (!compositor)
            qFatal("bench_bare_layer: no compositor");
        bare = std::make_unique<BareLayer>(std::move(compositor));
    });
}
