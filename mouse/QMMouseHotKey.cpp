// SPDX-License-Identifier: MIT
#include "mouse/QMMouseHotKey.h"

#include "foundation/Failure.h"
#include "mouse/QMMouseHotKeyTap.h"

namespace tarnwick {

using mouse_hot_key::eventTapM;

const TappedEvent* mouseCGEventCallback(EventTapRef /*proxy*/, quint32 type, const TappedEvent* event,
                                        QMMouseHotKey* mouseHotKey)
{
    // One comparison for both reasons: EventTapDisabledByTimeout + 2 is 0, EventTapDisabledByUserInput + 2
    // is 1.
    if (type + 2U <= 1U) {
        EventTaps::shared().enable(eventTapM, true);
        return nullptr;
    }
    mouse_hot_key::mouse = type;
    if (type == EventTapOtherMouseDown)
        mouseHotKey->_mouseButtonActioned(type);
    return event;
}

void QMMouseHotKey::_mouseButtonActioned(quint64 code)
{
    if (_delegate)
        _delegate->mouseHotKeyMouseButtonActioned(*this, code);
}

void QMMouseHotKey::setupMouseUpEventTap()
{
    auto& taps = EventTaps::shared();
    eventTapM = taps.create(EventTaps::AnnotatedSessionEventTap, EventTaps::HeadInsertEventTap,
                            EventTaps::EventTapOptionDefault, quint64(1) << EventTapOtherMouseDown,
                            [this](quint32 type, const TappedEvent* event) {
                                return mouseCGEventCallback(eventTapM, type, event, this);
                            });
    if (eventTapM == 0)
        failure::endProcess("failed to create event tap\n");
    taps.addSourceToMainRunLoop(eventTapM);
    taps.enable(eventTapM, true);
}

void QMMouseHotKey::killTap()
{
    disableTap();
    EventTaps::shared().release(eventTapM);
}

void QMMouseHotKey::enableTap()
{
    EventTaps::shared().enable(eventTapM, true);
}

void QMMouseHotKey::disableTap()
{
    EventTaps::shared().enable(eventTapM, false);
}

void QMMouseHotKey::awakeFromNib()
{
    setupMouseUpEventTap();
}

} // namespace tarnwick
