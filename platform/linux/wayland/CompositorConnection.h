// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QObject>
#include <QSocketNotifier>

#include <functional>
#include <memory>
#include <vector>
#include <wayland-util.h>

struct wl_display;
struct wl_registry;
struct wl_seat;

namespace tarnwick {

/// A connection to the compositor, for protocols that the toolkit does not speak: one beside the toolkit's,
/// or that itself for what is about its windows. Events come from the event loop. GUI thread only.
class CompositorConnection final : public QObject
{
    Q_OBJECT

public:
    /// To the compositor of the environment, whose answer is waited for; null when there is none.
    [[nodiscard]] static std::unique_ptr<CompositorConnection> open();
    /// The toolkit's, which it reads and closes itself; null when it runs elsewhere. Has to go before the
    /// application object.
    [[nodiscard]] static std::unique_ptr<CompositorConnection> ofToolkit();
    ~CompositorConnection() override;

    [[nodiscard]] bool offers(const char* interface) const;
    /// Of the version named, or the compositor's when that is older. Null where it offers none. The caller
    /// destroys it, before this goes.
    template <typename Proxy>
    [[nodiscard]] Proxy* bind(const wl_interface& interface, quint32 version)
    {
        return static_cast<Proxy*>(_bind(interface, version));
    }
    /// The first one; null where there is none.
    [[nodiscard]] wl_seat* seat() const { return _seat; }

    /// From now on events come from the event loop: the application object is there.
    void follow();

    /// Whether the compositor has gone, or has hung up.
    [[nodiscard]] bool isBroken() const;

    /// Sends what has been asked.
    void flush();
    /// Takes in all that the compositor has to tell by now. Not from inside an event of this connection.
    void roundTrip();
    /// Runs `then` from the event loop, once all that the compositor has told here by now has been dealt
    /// with; of the toolkit's connection the events of our windows, too. Never when the compositor goes.
    void afterEventsSoFar(std::function<void()> then);

Q_SIGNALS:
    /// The compositor has gone. Nothing can be asked any more.
    void ended();

private:
    struct Global
    {
        quint32 name;
        quint32 version;
    };

    enum class Owner { Self, Toolkit };
    class Question;

    CompositorConnection(wl_display* display, Owner owner);
    [[nodiscard]] void* _bind(const wl_interface& interface, quint32 version);
    void _read();
    void _end();

    wl_display* _display;
    Owner _owner;
    wl_registry* _registry;
    wl_seat* _seat = nullptr;
    QHash<QByteArray, Global> _globals; ///< by interface, the first of each
    std::vector<std::unique_ptr<Question>> _questions;
    std::unique_ptr<QSocketNotifier> _readable;
};

} // namespace tarnwick
