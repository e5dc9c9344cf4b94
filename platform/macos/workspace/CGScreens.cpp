// SPDX-License-Identifier: MIT
#include "platform/macos/workspace/CGScreens.h"

#include "platform/macos/system/CfOwned.h"

#include <ApplicationServices/ApplicationServices.h>
#include <array>

namespace tarnwick {
namespace {

QRectF boundsOf(CGDirectDisplayID display)
{
    const CGRect bounds = CGDisplayBounds(display);
    return {bounds.origin.x, bounds.origin.y, bounds.size.width, bounds.size.height};
}

/// The main display's bottom left corner is the window system's origin.
double mainDisplayBottom()
{
    return boundsOf(CGMainDisplayID()).bottom();
}

} // namespace

QList<QRectF> CGScreens::frames() const
{
    std::array<CGDirectDisplayID, 32> displays{};
    UInt32 count = 0;
    if (CGGetActiveDisplayList(displays.size(), displays.data(), &count) != kCGErrorSuccess)
        return {};
    const double bottom = mainDisplayBottom();
    QList<QRectF> frames;
    for (UInt32 i = 0; i < count; ++i) {
        const QRectF bounds = boundsOf(displays.at(i));
        frames.append(QRectF(bounds.x(), bottom - bounds.bottom(), bounds.width(), bounds.height()));
    }
    return frames;
}

QRectF CGScreens::mainDisplayBounds() const
{
    return boundsOf(CGMainDisplayID());
}

QPointF CGScreens::mouseLocation() const
{
    const CfOwned<CGEventRef> event(CGEventCreate(nullptr));
    if (!event)
        return {};
    const CGPoint location = CGEventGetLocation(event.get());
    return {location.x, mainDisplayBottom() - location.y};
}

} // namespace tarnwick
