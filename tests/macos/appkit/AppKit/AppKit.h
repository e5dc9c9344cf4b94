// SPDX-License-Identifier: MIT
// What the Objective-C++ files use of AppKit, after its public documentation. FakeAppKit.mm implements it.
#pragma once

#import <Foundation/Foundation.h>

@class NSMenu, NSMenuItem, NSScreen, NSWindow, NSView;

using NSEventType = NSUInteger;
using NSEventModifierFlags = NSUInteger;
using NSModalResponse = NSInteger;
using NSFontTraitMask = NSUInteger;
using NSWindowCollectionBehavior = NSUInteger;
using NSAlertStyle = NSUInteger;

enum { NSPreferencePanesDirectory = 22 };
enum : NSInteger {
    NSModalResponseStop = -1000,
    NSModalResponseAbort = -1001,
    NSModalResponseContinue = -1002
};
enum : NSUInteger { NSBoldFontMask = 2 };
enum : NSUInteger { NSEventTypeApplicationDefined = 15 };
enum : NSUInteger { NSWindowCollectionBehaviorCanJoinAllSpaces = 1 };

extern NSString* const NSFontAttributeName;
extern NSString* const NSStrokeWidthAttributeName;
extern NSString* const NSWorkspaceDidActivateApplicationNotification;

@interface NSFont : NSObject {
@public
    NSString* description;
}
+ (NSFont*)menuBarFontOfSize:(CGFloat)size;
@end

@interface NSFontManager : NSObject
+ (NSFontManager*)sharedFontManager;
- (NSFont*)fontWithFamily:(NSString*)family
                   traits:(NSFontTraitMask)traits
                   weight:(NSInteger)weight
                     size:(CGFloat)size;
- (NSFont*)convertFont:(NSFont*)font toHaveTrait:(NSFontTraitMask)trait;
@end

@interface NSEvent : NSObject {
@public
    NSEventType type;
    NSEventModifierFlags modifiers;
    unsigned short code;
    NSString* typed;
    NSString* unmodified;
}
+ (NSEvent*)otherEventWithType:(NSEventType)type
                      location:(NSPoint)location
                 modifierFlags:(NSEventModifierFlags)flags
                     timestamp:(NSTimeInterval)time
                  windowNumber:(NSInteger)window
                       context:(id)context
                       subtype:(short)subtype
                         data1:(NSInteger)data1
                         data2:(NSInteger)data2;
- (NSEventModifierFlags)modifierFlags;
- (unsigned short)keyCode;
- (NSString*)characters;
- (NSString*)charactersIgnoringModifiers;
@end

@protocol NSMenuDelegate <NSObject>
@optional
- (void)menuNeedsUpdate:(NSMenu*)menu;
- (void)menuWillOpen:(NSMenu*)menu;
- (void)menuDidClose:(NSMenu*)menu;
- (void)menu:(NSMenu*)menu willHighlightItem:(NSMenuItem*)item;
- (BOOL)menuHasKeyEquivalent:(NSMenu*)menu forEvent:(NSEvent*)event target:(id*)target action:(SEL*)action;
@end

@interface NSMenu : NSObject {
@public
    NSString* title;
    NSMutableArray* items;
    NSFont* font;
    id<NSMenuDelegate> delegate;
    NSMenu* supermenu;
    BOOL autoenables;
    BOOL cancelled;
}
- (instancetype)initWithTitle:(NSString*)text;
- (void)setAutoenablesItems:(BOOL)enables;
- (void)setDelegate:(id<NSMenuDelegate>)told;
- (void)setFont:(NSFont*)shown;
- (void)addItem:(NSMenuItem*)item;
- (void)removeAllItems;
- (BOOL)popUpMenuPositioningItem:(NSMenuItem*)item atLocation:(NSPoint)location inView:(NSView*)view;
- (void)cancelTracking;
@end

@interface NSMenuItem : NSObject {
@public
    NSString* title;
    NSAttributedString* attributedTitle;
    NSString* key;
    NSEventModifierFlags mask;
    NSInteger tag;
    NSInteger state;
    NSMenu* menu;
    NSMenu* submenu;
    id target;
    SEL action;
    BOOL separator, enabled, alternate, localizes, mirrors;
}
+ (NSMenuItem*)separatorItem;
- (void)setTag:(NSInteger)number;
- (NSInteger)tag;
- (void)setTitle:(NSString*)text;
- (void)setAttributedTitle:(NSAttributedString*)text;
- (void)setAction:(SEL)selector;
- (void)setTarget:(id)object;
- (void)setKeyEquivalent:(NSString*)text;
- (void)setKeyEquivalentModifierMask:(NSEventModifierFlags)flags;
- (NSEventModifierFlags)keyEquivalentModifierMask;
- (void)setAllowsAutomaticKeyEquivalentLocalization:(BOOL)allows;
- (void)setAllowsAutomaticKeyEquivalentMirroring:(BOOL)allows;
- (void)setEnabled:(BOOL)is;
- (void)setState:(NSInteger)is;
- (void)setAlternate:(BOOL)is;
- (void)setSubmenu:(NSMenu*)held;
@end

@interface NSImage : NSObject {
@public
    NSData* data;
    NSSize size;
    BOOL isTemplate;
}
- (instancetype)initWithData:(NSData*)bytes;
- (void)setSize:(NSSize)points;
- (void)setTemplate:(BOOL)is;
@end

@interface NSButton : NSObject {
@public
    NSImage* image;
    NSImage* alternateImage;
}
- (void)setImage:(NSImage*)shown;
- (void)setAlternateImage:(NSImage*)shown;
@end

@interface NSStatusItem : NSObject {
@public
    NSButton* button;
    NSMenu* menu;
    CGFloat length;
}
- (NSButton*)button;
- (void)setMenu:(NSMenu*)shown;
- (void)setHighlightMode:(BOOL)highlight;
@end

@interface NSStatusBar : NSObject {
@public
    NSMutableArray* items;
}
+ (NSStatusBar*)systemStatusBar;
- (NSStatusItem*)statusItemWithLength:(CGFloat)length;
- (void)removeStatusItem:(NSStatusItem*)item;
@end

@interface NSWindow : NSObject
- (void)orderFrontRegardless;
- (void)setCollectionBehavior:(NSWindowCollectionBehavior)behavior;
@end

@interface NSView : NSObject
- (NSWindow*)window;
@end

@interface NSApplication : NSObject
- (void)activateIgnoringOtherApps:(BOOL)ignoring;
- (NSWindow*)modalWindow;
- (void)stopModalWithCode:(NSModalResponse)code;
- (void)postEvent:(NSEvent*)event atStart:(BOOL)first;
@end

extern NSApplication* NSApp;

@interface NSRunningApplication : NSObject
- (NSString*)localizedName;
- (int)processIdentifier;
@end

/// "activeApplication" and "accessibilityDisplayShouldReduceMotion" are there or not, as on earlier and later
/// systems.
@interface NSWorkspace : NSObject
+ (NSWorkspace*)sharedWorkspace;
- (NSNotificationCenter*)notificationCenter;
- (NSRunningApplication*)frontmostApplication;
- (BOOL)openURL:(NSURL*)url;
@end

@interface NSAlert : NSObject {
@public
    NSAlertStyle style;
    NSString* message;
    NSString* informative;
    NSMutableArray* buttons;
}
- (void)setAlertStyle:(NSAlertStyle)is;
- (void)setMessageText:(NSString*)text;
- (void)setInformativeText:(NSString*)text;
- (NSButton*)addButtonWithTitle:(NSString*)text;
- (NSModalResponse)runModal;
- (void)beginSheetModalForWindow:(NSWindow*)window completionHandler:(void (^)(NSModalResponse code))handler;
@end
