// SPDX-License-Identifier: MIT
#include "platform/macos/menu/TWNativeMenu.h"

#include "menu/Menu.h"
#include "menu/MenuDelegate.h"
#include "menu/MenuItem.h"
#include "platform/macos/menu/NsFont.h"
#include "platform/macos/system/NsOwned.h"
#include "platform/macos/system/NsText.h"

#include <utility>
#include <vector>

using tarnwick::Menu;
using tarnwick::MenuItem;
using tarnwick::NativeMenuOwner;
using tarnwick::nsFont;
using tarnwick::NsOwned;
using tarnwick::nsString;

namespace {

struct ShownItem
{
    std::shared_ptr<MenuItem> item;
    NsOwned<NSMenuItem> native;
};

} // namespace

struct tarnwick::ShownMenu
{
    std::shared_ptr<Menu> menu;
    std::shared_ptr<NativeMenuOwner> owner;
    bool outermost = false;
    NsOwned<NSMenu> native;
    std::vector<ShownItem> items; // by the native items' tags
    std::vector<NsOwned<TWNativeMenu>> submenus;
};

namespace {

/// Nil for an item that is not among them.
NSMenuItem* nativeAmong(const std::vector<ShownItem>& items, const std::shared_ptr<MenuItem>& item)
{
    for (const ShownItem& each : items) {
        if (each.item == item)
            return each.native.get();
    }
    return nil;
}

NSAttributedString* attributedTitle(const tarnwick::AttributedTitle& title)
{
    NSMutableDictionary* attributes = [NSMutableDictionary dictionary];
    if (title.font)
        [attributes setObject:nsFont(*title.font) forKey:NSFontAttributeName];
    if (title.strokeWidth)
        [attributes setObject:[NSNumber numberWithDouble:*title.strokeWidth]
                       forKey:NSStrokeWidthAttributeName];
    return [[[NSAttributedString alloc] initWithString:nsString(title.text)
                                            attributes:attributes] autorelease];
}

tarnwick::Event eventOf(NSEvent* event)
{
    tarnwick::Event described;
    described.type = tarnwick::Event::Type::KeyDown;
    described.modifierFlags = [event modifierFlags];
    described.keyCode = [event keyCode];
    described.characters = tarnwick::textOfNsString([event characters]);
    described.charactersIgnoringModifiers = tarnwick::textOfNsString([event charactersIgnoringModifiers]);
    return described;
}

} // namespace

@interface TWNativeMenu ()
- (instancetype)initWithMenu:(const std::shared_ptr<Menu>&)menu
                       owner:(const std::shared_ptr<NativeMenuOwner>&)owner
                   outermost:(BOOL)outermost;
- (void)fill;
- (NSMenuItem*)newItemFor:(const std::shared_ptr<MenuItem>&)item;
- (void)show:(const std::shared_ptr<MenuItem>&)item in:(NSMenuItem*)native;
- (void)choose:(id)sender;
@end

@implementation TWNativeMenu

- (instancetype)initWithMenu:(const std::shared_ptr<Menu>&)menu
                       owner:(const std::shared_ptr<NativeMenuOwner>&)owner
{
    return [self initWithMenu:menu owner:owner outermost:YES];
}

- (instancetype)initWithMenu:(const std::shared_ptr<Menu>&)menu
                       owner:(const std::shared_ptr<NativeMenuOwner>&)owner
                   outermost:(BOOL)outermost
{
    self = [super init];
    if (!self)
        return nil;
    _shown = new tarnwick::ShownMenu;
    _shown->menu = menu;
    _shown->owner = owner;
    _shown->outermost = outermost;
    _shown->native = NsOwned<NSMenu>([[NSMenu alloc] initWithTitle:nsString(menu->title())]);
    // The model says what is enabled.
    [_shown->native.get() setAutoenablesItems:NO];
    [_shown->native.get() setDelegate:self];
    [self fill];
    return self;
}

- (void)dealloc
{
    [_shown->native.get() setDelegate:nil];
    delete _shown;
    [super dealloc];
}

- (NSMenu*)menu
{
    return _shown->native.get();
}

- (NSMenuItem*)nativeItemFor:(const std::shared_ptr<MenuItem>&)item
{
    return nativeAmong(_shown->items, item);
}

- (void)fill
{
    NSMenu* native = _shown->native.get();
    [native removeAllItems];
    _shown->submenus.clear();
    if (const auto font = _shown->menu->font())
        [native setFont:nsFont(*font)];
    // An item that stays keeps its native one: the menu may be about to open at it.
    const auto before = std::exchange(_shown->items, {});
    for (const auto& item : _shown->menu->itemArray()) {
        NSMenuItem* known = nativeAmong(before, item);
        NsOwned<NSMenuItem> nativeItem(known ? [known retain] : [self newItemFor:item]);
        [nativeItem.get() setTag:static_cast<NSInteger>(_shown->items.size())];
        if (!item->isSeparatorItem())
            [self show:item in:nativeItem.get()];
        [native addItem:nativeItem.get()];
        _shown->items.push_back({item, std::move(nativeItem)});
    }
}

- (NSMenuItem*)newItemFor:(const std::shared_ptr<MenuItem>&)item
{
    if (item->isSeparatorItem())
        return static_cast<NSMenuItem*>([[NSMenuItem separatorItem] retain]);
    NSMenuItem* native = [[NSMenuItem alloc] init];
    // The shortcuts are those that the application answers to: none is moved to where another layout has the
    // key, nor turned round with the direction of writing.
    [native setAllowsAutomaticKeyEquivalentLocalization:NO];
    [native setAllowsAutomaticKeyEquivalentMirroring:NO];
    return native;
}

- (void)show:(const std::shared_ptr<MenuItem>&)item in:(NSMenuItem*)native
{
    [native setTitle:nsString(item->title())];
    [native setAttributedTitle:item->attributedTitle() ? attributedTitle(*item->attributedTitle()) : nil];
    [native setAction:@selector(choose:)];
    [native setTarget:self];
    [native setKeyEquivalent:nsString(item->keyEquivalent())];
    [native setKeyEquivalentModifierMask:static_cast<decltype([native keyEquivalentModifierMask])>(
                                             item->keyEquivalentModifierMask())];
    [native setEnabled:item->isEnabled()];
    [native setState:item->state() == MenuItem::State::On ? 1 : 0];
    [native setAlternate:item->isAlternate()];
    if (!item->hasSubmenu()) {
        [native setSubmenu:nil];
        return;
    }
    _shown->submenus.emplace_back([[TWNativeMenu alloc] initWithMenu:item->submenu()
                                                               owner:_shown->owner
                                                           outermost:NO]);
    [native setSubmenu:[_shown->submenus.back().get() menu]];
}

- (void)choose:(id)sender
{
    const auto index = static_cast<std::size_t>([sender tag]);
    if (index >= _shown->items.size())
        return;
    // The owner may let go of this menu.
    const auto owner = _shown->owner;
    const auto menu = _shown->menu;
    const auto item = _shown->items[index].item;
    owner->chosen(menu, item);
}

- (void)menuNeedsUpdate:(NSMenu*)menu
{
    (void)menu;
    if (auto* delegate = _shown->menu->delegate())
        delegate->menuNeedsUpdate(*_shown->menu);
    _shown->menu->update();
    [self fill];
}

- (void)menuWillOpen:(NSMenu*)menu
{
    (void)menu;
    if (_shown->outermost && _shown->owner->opened)
        _shown->owner->opened();
    if (auto* delegate = _shown->menu->delegate())
        delegate->menuWillOpen(*_shown->menu);
}

- (void)menuDidClose:(NSMenu*)menu
{
    (void)menu;
    if (auto* delegate = _shown->menu->delegate())
        delegate->menuDidClose(*_shown->menu);
    if (_shown->outermost && _shown->owner->closed)
        _shown->owner->closed();
}

- (void)menu:(NSMenu*)menu willHighlightItem:(NSMenuItem*)item
{
    (void)menu;
    auto* delegate = _shown->menu->delegate();
    if (!delegate)
        return;
    const auto index = static_cast<std::size_t>([item tag]);
    const bool known = item && index < _shown->items.size();
    delegate->menuWillHighlightItem(*_shown->menu, known ? _shown->items[index].item.get() : nullptr);
}

- (BOOL)menuHasKeyEquivalent:(NSMenu*)menu forEvent:(NSEvent*)event target:(id*)target action:(SEL*)action
{
    (void)menu;
    (void)target;
    (void)action;
    tarnwick::ActionTarget* modelTarget = nullptr;
    QString modelAction;
    auto* delegate = _shown->menu->delegate();
    // Shortcuts shown in a pop-up are the other application's: a target of ours is never named.
    return delegate && delegate->menuHasKeyEquivalentForEventTargetAction(*_shown->menu, eventOf(event),
                                                                          modelTarget, modelAction);
}

@end
