// SPDX-License-Identifier: MIT
#pragma once

#include "tests/macos/simulation/MacObject.h"
#include "tests/macos/simulation/SimulatedMac.h"

#include <QList>

#include <Carbon/Carbon.h>

namespace tarnwick {

struct MacTap final : MacHandle
{
    CGEventTapLocation location = kCGHIDEventTap;
    CGEventMask eventsOfInterest = 0;
    CGEventTapCallBack callback = nullptr;
    void* userInfo = nullptr;
    bool enabled = false;
    bool scheduled = false;
};

/// What the adapters have installed in the system.
struct MacState
{
    struct Handler
    {
        EventTypeSpec type{};
        EventHandlerUPP handler = nullptr;
        void* userData = nullptr;
    };
    struct HotKeyEntry
    {
        SimulatedMac::HotKey hotKey;
        ::EventHotKeyRef reference = nullptr;
    };
    struct Observer
    {
        CFNotificationCenterRef center = nullptr;
        void* observer = nullptr;
        CFNotificationCallback callBack = nullptr;
        QString name;
    };
    struct AppleEventHandler
    {
        AEEventHandlerUPP handler = nullptr;
        SRefCon context = nullptr;
    };

    struct WaitingEvent
    {
        OSType eventClass = 0;
        UInt32 eventKind = 0;
        double time = 0;
    };

    static MacState& instance();

    QList<Handler> handlers;
    QList<HotKeyEntry> hotKeys;
    QList<WaitingEvent> waitingEvents;
    float messagingTimeout = 6; ///< seconds
    int symbolicModes = 0;      ///< pushed and not popped
    QList<Observer> observers;
    QList<AppleEventHandler> reopenHandlers;
    QList<MacTap*> taps; ///< in the order in which events pass them
};

} // namespace tarnwick
