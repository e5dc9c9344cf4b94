// SPDX-License-Identifier: MIT
#include "platform/macos/workspace/AppKitWindows.h"

#include <QWidget>

#import <AppKit/AppKit.h>

namespace tarnwick {

void activateApplication(bool ignoringOtherApps)
{
    if ([NSApp respondsToSelector:@selector(activateIgnoringOtherApps:)])
        [NSApp activateIgnoringOtherApps:ignoringOtherApps];
    else
        [NSApp performSelector:NSSelectorFromString(@"activate")];
}

void orderFrontRegardless(const QWidget& window)
{
    NSView* view = reinterpret_cast<NSView*>(window.winId());
    [[view window] orderFrontRegardless];
}

void abortModalAlert()
{
    if (![NSApp modalWindow])
        return;
    // abortModal would throw, and through C++ where a menu or a notification has called us. This loop ends
    // when it has had an event.
    [NSApp stopModalWithCode:NSModalResponseAbort];
    [NSApp postEvent:[NSEvent otherEventWithType:NSEventTypeApplicationDefined
                                        location:NSZeroPoint
                                   modifierFlags:0
                                       timestamp:0
                                    windowNumber:0
                                         context:nil
                                         subtype:0
                                           data1:0
                                           data2:0]
             atStart:YES];
}

} // namespace tarnwick
