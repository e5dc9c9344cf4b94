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
    if ([NSApp modalWindow])
        [NSApp abortModal];
}

} // namespace tarnwick
