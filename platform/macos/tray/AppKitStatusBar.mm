// SPDX-License-Identifier: MIT
#include "platform/macos/tray/AppKitStatusBar.h"

#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "platform/macos/menu/TWNativeMenu.h"
#include "platform/macos/system/NsOwned.h"
#include "platform/macos/tray/TemplateImage.h"
#include "platform/qt/menu/MenuChoice.h"
#include "platform/qt/menu/MenuTracking.h"

#include <QBuffer>
#include <QObject>

#import <AppKit/AppKit.h>

namespace tarnwick {
namespace {

constexpr double ImageHeight = 18; // points; the menu bar is 22 and more

/// An image that the menu bar tints, autoreleased; nil for a null one.
NSImage* statusImage(const QImage& image, Ink ink)
{
    if (image.isNull())
        return nil;
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    templateImage(image, ink).save(&buffer, "PNG");
    NSData* data = [NSData dataWithBytes:png.constData() length:static_cast<NSUInteger>(png.size())];
    NSImage* native = [[[NSImage alloc] initWithData:data] autorelease];
    [native setSize:NSMakeSize(ImageHeight * image.width() / image.height(), ImageHeight)];
    [native setTemplate:YES];
    return native;
}

class AppKitStatusItem final : public StatusItem
{
public:
    explicit AppKitStatusItem(double length)
        : _item([[[NSStatusBar systemStatusBar] statusItemWithLength:length] retain])
    {
        _cancelling = QObject::connect(&MenuTracking::shared(), &MenuTracking::cancelRequested,
                                       [this] { [[_menu.get() menu] cancelTracking]; });
    }

    ~AppKitStatusItem() override
    {
        QObject::disconnect(_cancelling);
        remove();
    }
    AppKitStatusItem(const AppKitStatusItem&) = delete;
    AppKitStatusItem& operator=(const AppKitStatusItem&) = delete;

    void remove()
    {
        if (!_item.get())
            return;
        [_item.get() setMenu:nil];
        [[NSStatusBar systemStatusBar] removeStatusItem:_item.get()];
        _item = NsOwned<NSStatusItem>();
    }

    void setHighlightMode(bool highlight) override
    {
        // Later systems highlight the item's button by themselves.
        if ([_item.get() respondsToSelector:@selector(setHighlightMode:)])
            [_item.get() setHighlightMode:highlight];
    }

    void setMenu(const std::shared_ptr<Menu>& menu) override
    {
        [_item.get() setMenu:nil];
        _menu = NsOwned<TWNativeMenu>();
        if (!menu)
            return;
        const auto owner = std::make_shared<NativeMenuOwner>(NativeMenuOwner{
            performMenuChoice,
            [] { MenuTracking::shared().begin(); },
            [] { MenuTracking::shared().end(); },
        });
        _menu = NsOwned<TWNativeMenu>([[TWNativeMenu alloc] initWithMenu:menu owner:owner]);
        [_item.get() setMenu:[_menu.get() menu]];
    }

    void setImage(const QImage& image) override { [_surface() setImage:statusImage(image, Ink::Dark)]; }

    void setAlternateImage(const QImage& image) override
    {
        [_surface() setAlternateImage:statusImage(image, Ink::Light)];
    }

private:
    /// What carries the images: the item's button, on older systems the item itself.
    [[nodiscard]] NSButton* _surface() const
    {
        if ([_item.get() respondsToSelector:@selector(button)])
            return [_item.get() button];
        return static_cast<NSButton*>(static_cast<id>(_item.get()));
    }

    NsOwned<NSStatusItem> _item; ///< empty once removed
    NsOwned<TWNativeMenu> _menu;
    QMetaObject::Connection _cancelling;
};

} // namespace

std::shared_ptr<StatusItem> AppKitStatusBar::statusItemWithLength(double length)
{
    return std::make_shared<AppKitStatusItem>(length);
}

void AppKitStatusBar::removeStatusItem(const std::shared_ptr<StatusItem>& item)
{
    if (item)
        static_cast<AppKitStatusItem&>(*item).remove();
}

} // namespace tarnwick
