// SPDX-License-Identifier: MIT
#include "tests/macos/appkit/FakeAppKit.h"

#include "platform/macos/system/NsText.h"

#include <QWidget>

#import <AppKit/AppKit.h>
#include <objc/runtime.h>

using namespace tarnwick;
using namespace tarnwick::appkit;

// What blocks are made of, where the runtime has none of its own.
extern "C" {
void* _NSConcreteGlobalBlock[32];
void* _NSConcreteStackBlock[32];
}

namespace {

int living = 0;
NSMenuItem* chosen = nil;

void fault(const char* what)
{
    theSystem().faults.append(QString::fromLatin1(what));
}

void note(const QString& what)
{
    theSystem().journal.append(what);
}

template <typename Object>
void keep(Object*& place, Object* object)
{
    [object retain];
    [place release];
    place = object;
}

void keepCopy(NSString*& place, NSString* text)
{
    if (!text)
        fault("a text that is nil");
    NSString* copy = [text copy];
    [place release];
    place = copy;
}

NSFont* fontNamed(const QString& description)
{
    NSFont* font = [[[NSFont alloc] init] autorelease];
    keepCopy(font->description, nsString(description));
    return font;
}

QString textOf(NSFont* font)
{
    return font ? textOfNsString(font->description) : QString();
}

NSMenu* menuOf(void* menu)
{
    return static_cast<NSMenu*>(menu);
}

void tellOpening(NSMenu* menu)
{
    // The delegate may have the items made anew.
    [[menu retain] autorelease];
    if ([menu->delegate respondsToSelector:@selector(menuNeedsUpdate:)])
        [menu->delegate menuNeedsUpdate:menu];
    if ([menu->delegate respondsToSelector:@selector(menuWillOpen:)])
        [menu->delegate menuWillOpen:menu];
}

void tellClosing(NSMenu* menu)
{
    if ([menu->delegate respondsToSelector:@selector(menuDidClose:)])
        [menu->delegate menuDidClose:menu];
}

std::optional<ShownImage> imageOf(NSImage* image)
{
    if (!image)
        return std::nullopt;
    return ShownImage{
        QByteArray(static_cast<const char*>([image->data bytes]), qsizetype([image->data length])),
        QSizeF(image->size.width, image->size.height), bool(image->isTemplate)};
}

} // namespace

namespace tarnwick::appkit {

System& theSystem()
{
    static System system;
    return system;
}

void reset()
{
    theSystem() = {};
    if (!NSApp)
        NSApp = [[NSApplication alloc] init];
    [NSStatusBar systemStatusBar]->items = [[NSMutableArray alloc] init];
}

QString ShownMenu::title() const
{
    return textOfNsString(menuOf(_menu)->title);
}

QString ShownMenu::font() const
{
    return textOf(menuOf(_menu)->font);
}

bool ShownMenu::autoenables() const
{
    return menuOf(_menu)->autoenables;
}

QList<ShownItem> ShownMenu::items() const
{
    QList<ShownItem> shown;
    for (NSMenuItem* item in menuOf(_menu)->items) {
        ShownItem each;
        each.native = item;
        each.title = textOfNsString(item->title);
        if (item->attributedTitle) {
            each.attributedTitle = textOfNsString([item->attributedTitle string]);
            NSDictionary* attributes = [item->attributedTitle attributesAtIndex:0 effectiveRange:nullptr];
            each.titleFont = textOf([attributes objectForKey:NSFontAttributeName]);
            if (NSNumber* width = [attributes objectForKey:NSStrokeWidthAttributeName])
                each.strokeWidth = [width doubleValue];
        }
        each.key = textOfNsString(item->key);
        each.mask = item->mask;
        each.tag = item->tag;
        each.state = item->state;
        each.separator = item->separator;
        each.enabled = item->enabled;
        each.alternate = item->alternate;
        each.hasSubmenu = item->submenu != nil;
        each.keysMayMove = item->localizes || item->mirrors;
        shown.append(each);
    }
    return shown;
}

ShownMenu ShownMenu::open(int index) const
{
    NSMenuItem* holder = [menuOf(_menu)->items objectAtIndex:NSUInteger(index)];
    tellOpening(holder->submenu);
    return ShownMenu(holder->submenu);
}

void ShownMenu::close() const
{
    tellClosing(menuOf(_menu));
}

void ShownMenu::highlight(int index) const
{
    NSMenu* menu = menuOf(_menu);
    NSMenuItem* item = index < 0 ? nil : [menu->items objectAtIndex:NSUInteger(index)];
    [menu->delegate menu:menu willHighlightItem:item];
}

std::pair<bool, bool> ShownMenu::hasKeyEquivalent(const Key& key) const
{
    NSMenu* menu = menuOf(_menu);
    NSEvent* event = [[[NSEvent alloc] init] autorelease];
    event->modifiers = NSUInteger(key.modifiers);
    event->code = key.code;
    keepCopy(event->typed, nsString(key.characters));
    keepCopy(event->unmodified, nsString(key.unmodified));
    id target = nil;
    SEL action = nullptr;
    const bool has = [menu->delegate menuHasKeyEquivalent:menu forEvent:event target:&target action:&action];
    return {has, target || action};
}

void ShownMenu::choose(int index) const
{
    NSMenuItem* item = [menuOf(_menu)->items objectAtIndex:NSUInteger(index)];
    keep(chosen, item);
}

void ShownMenu::popUp() const
{
    [menuOf(_menu) popUpMenuPositioningItem:nil atLocation:NSZeroPoint inView:nil];
}

QList<ShownStatusItem> statusItems()
{
    QList<ShownStatusItem> shown;
    for (NSStatusItem* item in [NSStatusBar systemStatusBar]->items)
        shown.append({double(item->length), imageOf(item->button->image),
                      imageOf(item->button->alternateImage),
                      item->menu ? std::optional(ShownMenu(item->menu)) : std::nullopt});
    return shown;
}

void tellOfActivation()
{
    [[[NSWorkspace sharedWorkspace] notificationCenter]
        postNotificationName:NSWorkspaceDidActivateApplicationNotification
                      object:[NSWorkspace sharedWorkspace]];
}

Pool::Pool() : _pool([[NSAutoreleasePool alloc] init]) {}

Pool::~Pool()
{
    [static_cast<NSAutoreleasePool*>(_pool) drain];
}

int alive()
{
    return living;
}

} // namespace tarnwick::appkit

// On that system the number of a window is its view.
WId QWidget::winId() const
{
    static NSView* const view = [[NSView alloc] init];
    return reinterpret_cast<WId>(view);
}

NSString* const NSFontAttributeName = @"NSFont";
NSString* const NSStrokeWidthAttributeName = @"NSStrokeWidth";
NSString* const NSWorkspaceDidActivateApplicationNotification =
    @"NSWorkspaceDidActivateApplicationNotification";
NSApplication* NSApp = nil;

@implementation NSFont
+ (NSFont*)menuBarFontOfSize:(CGFloat)size
{
    return fontNamed(QStringLiteral("menu bar %1").arg(size));
}
- (void)dealloc
{
    [description release];
    [super dealloc];
}
@end

@implementation NSFontManager
+ (NSFontManager*)sharedFontManager
{
    static NSFontManager* const manager = [[NSFontManager alloc] init];
    return manager;
}
- (NSFont*)fontWithFamily:(NSString*)family
                   traits:(NSFontTraitMask)traits
                   weight:(NSInteger)weight
                     size:(CGFloat)size
{
    const QString name = textOfNsString(family);
    if (name.startsWith(QLatin1Char('.')))
        fault("a font of the system asked for by name");
    if (theSystem().missingFonts.contains(name))
        return nil;
    return fontNamed(QStringLiteral("%1 %2 weight %3%4")
                         .arg(name)
                         .arg(size)
                         .arg(weight)
                         .arg(QLatin1String(traits & NSBoldFontMask ? " bold" : "")));
}
- (NSFont*)convertFont:(NSFont*)font toHaveTrait:(NSFontTraitMask)trait
{
    return fontNamed(textOf(font) + QLatin1String(trait == NSBoldFontMask ? " bold" : " changed"));
}
@end

@implementation NSEvent
+ (NSEvent*)otherEventWithType:(NSEventType)type
                      location:(NSPoint)location
                 modifierFlags:(NSEventModifierFlags)flags
                     timestamp:(NSTimeInterval)time
                  windowNumber:(NSInteger)window
                       context:(id)context
                       subtype:(short)subtype
                         data1:(NSInteger)data1
                         data2:(NSInteger)data2
{
    (void)location, (void)flags, (void)time, (void)window, (void)context, (void)subtype, (void)data1,
        (void)data2;
    NSEvent* event = [[[NSEvent alloc] init] autorelease];
    event->type = type;
    return event;
}
- (NSEventModifierFlags)modifierFlags
{
    return modifiers;
}
- (unsigned short)keyCode
{
    return code;
}
- (NSString*)characters
{
    return typed;
}
- (NSString*)charactersIgnoringModifiers
{
    return unmodified;
}
- (void)dealloc
{
    [typed release];
    [unmodified release];
    [super dealloc];
}
@end

@implementation NSMenu
- (instancetype)initWithTitle:(NSString*)text
{
    self = [super init];
    ++living;
    keepCopy(title, text);
    items = [[NSMutableArray alloc] init];
    autoenables = YES;
    return self;
}
- (void)dealloc
{
    --living;
    [self removeAllItems];
    [items release];
    [title release];
    [font release];
    [super dealloc];
}
- (void)setAutoenablesItems:(BOOL)enables
{
    autoenables = enables;
}
- (void)setDelegate:(id<NSMenuDelegate>)told
{
    delegate = told; // not owned
}
- (void)setFont:(NSFont*)shown
{
    keep(font, shown);
}
- (void)addItem:(NSMenuItem*)item
{
    if (item->menu)
        fault("an item added that is in a menu");
    item->menu = self;
    [items addObject:item];
}
- (void)removeAllItems
{
    for (NSMenuItem* item in items)
        item->menu = nil;
    [items removeAllObjects];
}
- (BOOL)popUpMenuPositioningItem:(NSMenuItem*)item atLocation:(NSPoint)location inView:(NSView*)view
{
    const auto index = item ? [items indexOfObjectIdenticalTo:item] : NSNotFound;
    System& system = theSystem();
    [[self retain] autorelease];
    tellOpening(self);
    const auto after = item ? [items indexOfObjectIdenticalTo:item] : NSNotFound;
    if (index != after)
        fault("the item that it opens at has gone from it");
    system.popUps.append({!item                 ? -1
                          : after == NSNotFound ? -2
                                                : int(after),
                          QPointF(location.x, location.y), view != nil});
    cancelled = NO;
    if (system.whileOpen)
        system.whileOpen(ShownMenu(self));
    system.cancelled = cancelled;
    tellClosing(self);
    NSMenuItem* const pressed = [chosen autorelease];
    chosen = nil;
    if (pressed && !cancelled)
        [pressed->target performSelector:pressed->action withObject:pressed];
    return pressed != nil;
}
- (void)cancelTracking
{
    cancelled = YES;
}
@end

@implementation NSMenuItem
+ (NSMenuItem*)separatorItem
{
    NSMenuItem* item = [[[NSMenuItem alloc] init] autorelease];
    item->separator = YES;
    item->enabled = NO;
    return item;
}
- (instancetype)init
{
    self = [super init];
    ++living;
    title = [@"" retain];
    key = [@"" retain];
    enabled = localizes = mirrors = YES;
    return self;
}
- (void)dealloc
{
    --living;
    [title release];
    [attributedTitle release];
    [key release];
    [submenu release];
    [super dealloc];
}
- (void)setTag:(NSInteger)number
{
    tag = number;
}
- (NSInteger)tag
{
    return tag;
}
- (void)setTitle:(NSString*)text
{
    keepCopy(title, text);
}
- (void)setAttributedTitle:(NSAttributedString*)text
{
    keep(attributedTitle, text);
}
- (void)setAction:(SEL)selector
{
    action = selector;
}
- (void)setTarget:(id)object
{
    target = object; // not owned
}
- (void)setKeyEquivalent:(NSString*)text
{
    keepCopy(key, text);
}
- (void)setKeyEquivalentModifierMask:(NSEventModifierFlags)flags
{
    mask = flags;
}
- (NSEventModifierFlags)keyEquivalentModifierMask
{
    return mask;
}
- (void)setAllowsAutomaticKeyEquivalentLocalization:(BOOL)allows
{
    localizes = allows;
}
- (void)setAllowsAutomaticKeyEquivalentMirroring:(BOOL)allows
{
    mirrors = allows;
}
- (void)setEnabled:(BOOL)is
{
    enabled = is;
}
- (void)setState:(NSInteger)is
{
    state = is;
}
- (void)setAlternate:(BOOL)is
{
    alternate = is;
}
- (void)setSubmenu:(NSMenu*)held
{
    if (held && held->supermenu && held != submenu)
        fault("a submenu that is another item's");
    if (submenu)
        submenu->supermenu = nil;
    keep(submenu, held);
    if (submenu)
        submenu->supermenu = menu ? menu : (NSMenu*)self;
}
@end

@implementation NSImage
- (instancetype)initWithData:(NSData*)bytes
{
    self = [super init];
    ++living;
    keep(data, bytes);
    return self;
}
- (void)dealloc
{
    --living;
    [data release];
    [super dealloc];
}
- (void)setSize:(NSSize)points
{
    size = points;
}
- (void)setTemplate:(BOOL)is
{
    isTemplate = is;
}
@end

@implementation NSButton
- (void)setImage:(NSImage*)shown
{
    keep(image, shown);
}
- (void)setAlternateImage:(NSImage*)shown
{
    keep(alternateImage, shown);
}
- (void)dealloc
{
    [image release];
    [alternateImage release];
    [super dealloc];
}
@end

@implementation NSStatusItem
- (instancetype)init
{
    self = [super init];
    ++living;
    button = [[NSButton alloc] init];
    return self;
}
- (void)dealloc
{
    --living;
    [button release];
    [menu release];
    [super dealloc];
}
- (NSButton*)button
{
    return button;
}
- (void)setMenu:(NSMenu*)shown
{
    keep(menu, shown);
}
- (void)setHighlightMode:(BOOL)highlight
{
    note(QStringLiteral("highlight mode %1").arg(highlight));
}
@end

@implementation NSStatusBar
+ (NSStatusBar*)systemStatusBar
{
    static NSStatusBar* const bar = [[NSStatusBar alloc] init];
    return bar;
}
- (NSStatusItem*)statusItemWithLength:(CGFloat)length
{
    NSStatusItem* item = [[[NSStatusItem alloc] init] autorelease];
    item->length = length;
    [items addObject:item];
    return item;
}
- (void)removeStatusItem:(NSStatusItem*)item
{
    if (![items containsObject:item])
        fault("a status item removed that is not there");
    [items removeObjectIdenticalTo:item];
}
@end

@implementation NSWindow
- (void)orderFrontRegardless
{
    note(QStringLiteral("order front regardless"));
}
- (void)setCollectionBehavior:(NSWindowCollectionBehavior)behavior
{
    note(QStringLiteral("collection behavior %1").arg(behavior));
}
@end

@implementation NSView
- (NSWindow*)window
{
    static NSWindow* const window = [[NSWindow alloc] init];
    return window;
}
@end

@implementation NSApplication
- (void)activateIgnoringOtherApps:(BOOL)ignoring
{
    note(QStringLiteral("activate %1").arg(ignoring));
}
- (NSWindow*)modalWindow
{
    static NSWindow* const window = [[NSWindow alloc] init];
    return theSystem().modal ? window : nil;
}
- (void)stopModalWithCode:(NSModalResponse)code
{
    note(QStringLiteral("stop modal %1").arg(code));
}
- (void)postEvent:(NSEvent*)event atStart:(BOOL)first
{
    note(QStringLiteral("post %1 %2").arg(event->type).arg(first));
}
@end

@implementation NSRunningApplication
- (NSString*)localizedName
{
    return nsString(theSystem().active->first);
}
- (int)processIdentifier
{
    return theSystem().active->second;
}
@end

@implementation NSWorkspace
+ (NSWorkspace*)sharedWorkspace
{
    static NSWorkspace* const workspace = [[NSWorkspace alloc] init];
    return workspace;
}
- (NSNotificationCenter*)notificationCenter
{
    static NSNotificationCenter* const center = [[NSNotificationCenter alloc] init];
    return center;
}
- (BOOL)respondsToSelector:(SEL)selector
{
    const NSString* const name = NSStringFromSelector(selector);
    if ([name isEqual:@"activeApplication"])
        return theSystem().namesActive;
    if ([name isEqual:@"accessibilityDisplayShouldReduceMotion"])
        return theSystem().reducesMotion.has_value();
    return [super respondsToSelector:selector];
}
- (NSDictionary*)activeApplication
{
    const auto& active = theSystem().active;
    if (!active)
        return nil;
    NSMutableDictionary* told = [NSMutableDictionary dictionary];
    [told setObject:nsString(active->first) forKey:@"NSApplicationName"];
    if (active->second)
        [told setObject:[NSNumber numberWithInt:active->second] forKey:@"NSApplicationProcessIdentifier"];
    return told;
}
- (BOOL)accessibilityDisplayShouldReduceMotion
{
    return *theSystem().reducesMotion;
}
- (NSRunningApplication*)frontmostApplication
{
    static NSRunningApplication* const front = [[NSRunningApplication alloc] init];
    return theSystem().active ? front : nil;
}
- (BOOL)openURL:(NSURL*)url
{
    theSystem().opened.append(textOfNsString([url absoluteString]));
    return YES;
}
@end

@implementation NSAlert
- (instancetype)init
{
    self = [super init];
    ++living;
    buttons = [[NSMutableArray alloc] init];
    return self;
}
- (void)dealloc
{
    --living;
    [message release];
    [informative release];
    [buttons release];
    [super dealloc];
}
- (void)setAlertStyle:(NSAlertStyle)is
{
    style = is;
}
- (void)setMessageText:(NSString*)text
{
    keepCopy(message, text);
}
- (void)setInformativeText:(NSString*)text
{
    keepCopy(informative, text);
}
- (NSButton*)addButtonWithTitle:(NSString*)text
{
    [buttons addObject:text];
    return nil;
}
- (void)show
{
    ShownAlert shown{style, textOfNsString(message), textOfNsString(informative), {}};
    for (NSString* button in buttons)
        shown.buttons.append(textOfNsString(button));
    theSystem().alerts.append(shown);
}
- (NSModalResponse)runModal
{
    [self show];
    return theSystem().alertAnswers.takeFirst();
}
- (void)beginSheetModalForWindow:(NSWindow*)window completionHandler:(void (^)(NSModalResponse code))handler
{
    (void)window;
    [self show];
    System& system = theSystem();
    if (system.whileSheet)
        system.whileSheet();
    if (system.alertAnswers.isEmpty())
        fault("a sheet without an answer");
    else
        handler(system.alertAnswers.takeFirst());
}
@end

/// What SMAppService is made of once the system has it.
@interface FakeAppService : NSObject
@end

@implementation FakeAppService
+ (id)mainAppService
{
    static FakeAppService* const service = [[FakeAppService alloc] init];
    return service;
}
- (NSInteger)status
{
    return theSystem().serviceStatus;
}
- (BOOL)registerAndReturnError:(NSError**)error
{
    (void)error;
    theSystem().serviceStatus = 1;
    return YES;
}
- (BOOL)unregisterAndReturnError:(NSError**)error
{
    (void)error;
    theSystem().serviceStatus = 0;
    return YES;
}
@end

void tarnwick::appkit::addAppService()
{
    objc_registerClassPair(objc_allocateClassPair([FakeAppService class], "SMAppService", 0));
}
