// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11EventFilter.h"

#include <QCoreApplication>

namespace tarnwick {

bool isOfX11Extension(const xcb_generic_event_t& event, std::uint8_t opcode)
{
    return opcode != 0 && x11EventType(event) == XCB_GE_GENERIC &&
           x11EventAs<xcb_ge_generic_event_t>(event).extension == opcode;
}

bool X11EventFilter::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    auto& event = *static_cast<xcb_generic_event_t*>(message);
    return filter(x11EventType(event), event);
}

void X11EventFilter::install()
{
    QCoreApplication::instance()->installNativeEventFilter(this);
}

void X11EventFilter::remove()
{
    QCoreApplication::instance()->removeNativeEventFilter(this);
}

} // namespace tarnwick
