// SPDX-License-Identifier: MIT
// What the Objective-C++ files use of AppKit and GNUstep's headers do not declare, for the syntax check.
#pragma once

#import <AppKit/AppKit.h>

enum { NSPreferencePanesDirectory = 22 };

const NSEventType NSEventTypeApplicationDefined = NSApplicationDefined;

NSString* const NSWorkspaceDidActivateApplicationNotification =
    @"NSWorkspaceDidActivateApplicationNotification";

@interface NSMenu (GNUstepLacks)
- (BOOL)popUpMenuPositioningItem:(NSMenuItem*)item atLocation:(NSPoint)location inView:(NSView*)view;
- (void)cancelTracking;
- (void)removeAllItems;
- (void)setFont:(NSFont*)font;
@end

@interface NSMenuItem (GNUstepLacks)
- (void)setAllowsAutomaticKeyEquivalentLocalization:(BOOL)allows;
- (void)setAllowsAutomaticKeyEquivalentMirroring:(BOOL)allows;
@end

// Optional for a menu's delegate, here required.
@interface NSObject (GNUstepLacks)
- (NSRect)confinementRectForMenu:(NSMenu*)menu onScreen:(NSScreen*)screen;
@end

@interface NSStatusItem (GNUstepLacks)
- (NSButton*)button;
@end

@interface NSImage (GNUstepLacks)
- (void)setTemplate:(BOOL)isTemplate;
@end

@interface NSAlert (GNUstepLacks)
- (void)beginSheetModalForWindow:(NSWindow*)window completionHandler:(void (^)(NSInteger returnCode))handler;
@end
