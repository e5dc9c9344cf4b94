// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/X11FrontApplication.h"

#include "platform/linux/xdg/XdgSession.h"

#include <QCoreApplication>

#include <utility>

namespace tarnwick {

X11FrontApplication::X11FrontApplication(FindNative findNative) : _findNative(std::move(findNative))
{
    connect(&_x11, &X11ActiveWindow::changed, this, &X11FrontApplication::_x11Changed);
}

std::unique_ptr<FrontApplication> X11FrontApplication::make(AtspiActiveWindow& inTree)
{
    return std::make_unique<X11FrontApplication>([&inTree](const FrontHint& hint) {
        return xdg_session::isWayland() ? inTree.current(hint.processIdentifier, hint.title) : AtspiWindow();
    });
}

bool X11FrontApplication::watch()
{
    if (!_x11.watching())
        return false;
    QCoreApplication::sendPostedEvents(&_x11, QEvent::MetaCall);
    _watched = true;
    return true;
}

FrontWindow X11FrontApplication::current() const
{
    const X11Window window = _x11.current();
    return window ? FrontWindow{window.id, window.processIdentifier} : _native;
}

std::optional<FrontWindow> X11FrontApplication::lookAgain()
{
    return lookAgainFor({});
}

std::optional<FrontWindow> X11FrontApplication::lookAgainFor(const FrontHint& hint)
{
    if (_x11.current())
        return std::nullopt;
    _native = _nativeInFront(hint);
    return _native;
}

void X11FrontApplication::afterChangesSoFar(std::function<void()> then)
{
    _x11.afterChangesSoFar(std::move(then));
}

void X11FrontApplication::_x11Changed(const X11Window& window)
{
    _native = !window && _watched ? _nativeInFront({}) : FrontWindow();
    Q_EMIT changed(window ? FrontWindow{window.id, window.processIdentifier} : _native);
}

FrontWindow X11FrontApplication::_nativeInFront(const FrontHint& hint) const
{
    const AtspiWindow found = _findNative(hint);
    return {XCB_WINDOW_NONE, found.processIdentifier, found.reference};
}

} // namespace tarnwick

#include "moc_X11FrontApplication.cpp"
