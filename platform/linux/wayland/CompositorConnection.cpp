// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/CompositorConnection.h"

#include <QGuiApplication>
#include <QTimer>

#include <algorithm>
#include <utility>
#include <wayland-client.h>

namespace tarnwick {

/// Whether the compositor is there: its answer comes after all that it has told before.
class CompositorConnection::Question
{
public:
    Question(wl_display* display, std::function<void(Question*)> answered)
        : _callback(wl_display_sync(display)), _answered(std::move(answered))
    {
        static constexpr wl_callback_listener Listener{
            [](void* self, wl_callback*, quint32) { static_cast<Question*>(self)->_turn.start(); }};
        wl_callback_add_listener(_callback, &Listener, this);
        _turn.setSingleShot(true);
        _turn.setInterval(0);
        QObject::connect(&_turn, &QTimer::timeout, &_turn, [this] { _next(); });
    }
    ~Question() { wl_callback_destroy(_callback); }
    Question(const Question&) = delete;
    Question& operator=(const Question&) = delete;

private:
    /// The toolkit keeps what it has been told of our windows for the end of a turn of the event loop, after
    /// the timers.
    void _next()
    {
        if (--_turnsLeft > 0)
            _turn.start();
        else
            _answered(this);
    }

    wl_callback* _callback;
    std::function<void(Question*)> _answered;
    QTimer _turn;
    int _turnsLeft = 2;
};

CompositorConnection::CompositorConnection(wl_display* display, Owner owner)
    : _display(display), _owner(owner), _registry(wl_display_get_registry(display))
{
    static constexpr wl_registry_listener Listener{
        [](void* self, wl_registry* /*registry*/, quint32 name, const char* interface, quint32 version) {
            auto& globals = static_cast<CompositorConnection*>(self)->_globals;
            if (!globals.contains(interface))
                globals.insert(interface, {name, version});
        },
        [](void* self, wl_registry* /*registry*/, quint32 name) {
            static_cast<CompositorConnection*>(self)->_globals.removeIf(
                [name](auto global) { return global.value().name == name; });
        }};
    wl_registry_add_listener(_registry, &Listener, this);
    wl_display_roundtrip(_display);
    _seat = bind<wl_seat>(wl_seat_interface, 1);
    flush();
}

void CompositorConnection::follow()
{
    _readable = std::make_unique<QSocketNotifier>(wl_display_get_fd(_display), QSocketNotifier::Read);
    connect(_readable.get(), &QSocketNotifier::activated, this, &CompositorConnection::_read);
}

std::unique_ptr<CompositorConnection> CompositorConnection::open()
{
    wl_display* display = wl_display_connect(nullptr);
    return std::unique_ptr<CompositorConnection>(display ? new CompositorConnection(display, Owner::Self)
                                                         : nullptr);
}

std::unique_ptr<CompositorConnection> CompositorConnection::ofToolkit()
{
    const auto* const wayland = qGuiApp->nativeInterface<QNativeInterface::QWaylandApplication>();
    return std::unique_ptr<CompositorConnection>(
        wayland ? new CompositorConnection(wayland->display(), Owner::Toolkit) : nullptr);
}

CompositorConnection::~CompositorConnection()
{
    _questions.clear();
    if (_seat)
        wl_seat_destroy(_seat);
    wl_registry_destroy(_registry);
    if (_owner == Owner::Self)
        wl_display_disconnect(_display);
}

bool CompositorConnection::offers(const char* interface) const
{
    return _globals.contains(interface);
}

void* CompositorConnection::_bind(const wl_interface& interface, quint32 version)
{
    const auto global = _globals.constFind(interface.name);
    if (global == _globals.cend())
        return nullptr;
    return wl_registry_bind(_registry, global->name, &interface, std::min(version, global->version));
}

bool CompositorConnection::isBroken() const
{
    return wl_display_get_error(_display) != 0;
}

void CompositorConnection::flush()
{
    if (wl_display_flush(_display) < 0 && errno != EAGAIN)
        _end();
}

void CompositorConnection::roundTrip()
{
    if (wl_display_roundtrip(_display) < 0)
        _end();
}

void CompositorConnection::afterEventsSoFar(std::function<void()> then)
{
    const auto answered = [this, then = std::move(then)](const Question* question) {
        const auto found = std::ranges::find(_questions, question, &std::unique_ptr<Question>::get);
        const auto over = std::exchange(*found, nullptr); // lives until this is over
        _questions.erase(found);
        then();
    };
    _questions.push_back(std::make_unique<Question>(_display, answered));
    flush();
}

void CompositorConnection::_read()
{
    // There is something to read, and nobody else reads here: it does not wait.
    if (wl_display_dispatch(_display) < 0)
        _end();
    else
        flush(); // what the events have led to
}

void CompositorConnection::_end()
{
    if (!_readable || !_readable->isEnabled())
        return;
    _readable->setEnabled(false);
    Q_EMIT ended();
}

} // namespace tarnwick

#include "moc_CompositorConnection.cpp"
