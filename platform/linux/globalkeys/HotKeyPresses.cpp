// SPDX-License-Identifier: MIT
#include "platform/linux/globalkeys/HotKeyPresses.h"

#include "app/HotKeys.h"
#include "platform/qt/menu/MenuTracking.h"

#include <QApplication>
#include <QPointer>

namespace tarnwick {

namespace {

/// A key that is held repeats sooner than that. Not every release is told of.
constexpr qint64 LongestTimeToRepeat = 1000; // ms

} // namespace

void HotKeyPresses::pressed()
{
    const bool repeats = _held.isValid() && !_held.hasExpired(LongestTimeToRepeat);
    _held.start();
    if (repeats || QApplication::activePopupWidget())
        return;
    _order([self = QPointer(this)] {
        if (self)
            self->_offer();
    });
}

void HotKeyPresses::released()
{
    _held.invalidate();
}

void HotKeyPresses::_offer()
{
    if (QApplication::activePopupWidget())
        return;
    if (MenuTracking::shared().active())
        _offerOnceClosed();
    else
        _callHandlers();
}

/// The menu is closed for the eye, but not quite: its turn comes at once.
void HotKeyPresses::_offerOnceClosed()
{
    connect(&MenuTracking::shared(), &MenuTracking::ended, this, &HotKeyPresses::_offer,
            Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
}

void HotKeyPresses::_callHandlers() const
{
    const auto handlers = _handlers;
    for (auto handler = handlers.rbegin(); handler != handlers.rend(); ++handler)
        if ((*handler)() == HotKeys::noErr)
            return;
}

} // namespace tarnwick

#include "moc_HotKeyPresses.cpp"
