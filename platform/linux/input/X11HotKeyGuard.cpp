// SPDX-License-Identifier: MIT
#include "platform/linux/input/X11HotKeyGuard.h"

#include "platform/linux/x11/X11EventFilter.h"

#include <QCoreApplication>

#include <chrono>
#include <utility>

namespace tarnwick {

using namespace std::chrono_literals;

namespace {

constexpr auto ChordPatience = 600ms;
constexpr auto LookInterval = 20ms;

bool isPress(const xcb_key_press_event_t& event)
{
    return x11EventType(event) == XCB_KEY_PRESS;
}

} // namespace

X11HotKeyGuard& X11HotKeyGuard::shared()
{
    static X11HotKeyGuard guard;
    return guard;
}

X11HotKeyGuard::X11HotKeyGuard()
{
    _letGoTimer.setInterval(LookInterval);
    connect(&_letGoTimer, &QTimer::timeout, this, &X11HotKeyGuard::_letGoWhenUp);
    auto& toolkit = X11Connection::shared();
    auto connection = toolkit ? connectToX11() : nullptr;
    if (!connection)
        return;
    _sentry = std::make_unique<X11HotKeySentry>(toolkit, std::move(connection));
    // The toolkit's connection ends before this does.
    qAddPostRoutine([] { shared()._stop(); });
}

X11HotKeyGuard::~X11HotKeyGuard() = default;

void X11HotKeyGuard::_stop()
{
    _letGoTimer.stop();
    _sentry.reset();
}

void X11HotKeyGuard::watch(const QList<Chord>& chords)
{
    if (!_sentry)
        return;
    _sentry->watch(chords);
    if (chords.isEmpty())
        _release();
}

std::optional<X11HotKeyGuard::Taken> X11HotKeyGuard::handOver()
{
    if (!_sentry)
        return std::nullopt;
    _letGoTimer.stop();
    auto taken = _sentry->handOver();
    auto keys = std::exchange(_keys, {});
    if (taken)
        taken->keys = std::move(keys);
    return taken;
}

void X11HotKeyGuard::handBack()
{
    if (_sentry)
        _sentry->handBack();
}

void X11HotKeyGuard::letGo(xcb_timestamp_t pressed)
{
    if (!_sentry || !_sentry->dealtWith(pressed) || _letGoTimer.isActive())
        return;
    _letGoDeadline.setRemainingTime(ChordPatience);
    _letGoTimer.start();
    _letGoWhenUp();
}

void X11HotKeyGuard::holdOn(xcb_timestamp_t pressed)
{
    if (!_sentry || !_letGoTimer.isActive())
        return;
    _letGoTimer.stop();
    _keys.clear();
    _sentry->holdOn(pressed);
}

void X11HotKeyGuard::_letGoWhenUp()
{
    if (!_letGoDeadline.hasExpired() && (keysDown(X11Connection::shared()) & _sentry->chordKeys()).any())
        return;
    _release();
    Q_EMIT letGoOf();
}

void X11HotKeyGuard::_release()
{
    _letGoTimer.stop();
    _sentry->release();
    _keys.clear();
}

bool X11HotKeyGuard::collect(const xcb_key_press_event_t& event)
{
    // While it is let go of, nothing waits; a hot key may come again.
    if (!_sentry || !_sentry->holds() || _letGoTimer.isActive() || !_sentry->isHeldKey(event))
        return false;
    // A hot key does nothing while a menu is open, or about to be.
    if (!isPress(event) || !_sentry->isHotKey(event))
        _keys.append(event);
    return true;
}

} // namespace tarnwick

#include "moc_X11HotKeyGuard.cpp"
