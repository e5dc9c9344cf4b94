// SPDX-License-Identifier: MIT
#include "platform/macos/workspace/AppKitWorkspace.h"

#include "platform/macos/system/NsText.h"

#include <QWidget>

#import <AppKit/AppKit.h>
#include <utility>

namespace tarnwick {

static_assert(int(NSPreferencePanesDirectory) == int(Workspace::PreferencePanesDirectory));
static_assert(int(NSSystemDomainMask) == int(Workspace::SystemDomainMask));
static_assert(int(NSWindowCollectionBehaviorCanJoinAllSpaces) ==
              int(Workspace::WindowCollectionBehaviorCanJoinAllSpaces));

std::optional<Workspace::ActiveApplication> AppKitWorkspace::activeApplication() const
{
    NSWorkspace* workspace = [NSWorkspace sharedWorkspace];
    // By name: later systems may no longer declare it.
    const SEL activeApplication = NSSelectorFromString(@"activeApplication");
    if ([workspace respondsToSelector:activeApplication]) {
        NSDictionary* active = [workspace performSelector:activeApplication];
        if (!active)
            return std::nullopt;
        NSNumber* processIdentifier = [active objectForKey:@"NSApplicationProcessIdentifier"];
        return ActiveApplication{textOfNsString([active objectForKey:@"NSApplicationName"]),
                                 processIdentifier ? std::optional<qint64>([processIdentifier longLongValue])
                                                   : std::nullopt};
    }
    NSRunningApplication* front = [workspace frontmostApplication];
    if (!front)
        return std::nullopt;
    return ActiveApplication{textOfNsString([front localizedName]), [front processIdentifier]};
}

std::optional<qint64> AppKitWorkspace::activeProcessIdentifier() const
{
    const auto active = activeApplication();
    return active ? active->processIdentifier : std::nullopt;
}

bool AppKitWorkspace::installAppFrontSwitchedHandler(std::function<void()> switched)
{
    if (!_frontSwitch.install(std::move(switched)))
        return false;
    // Kept for life, as the event's handler is.
    [[[NSWorkspace sharedWorkspace] notificationCenter]
        addObserverForName:NSWorkspaceDidActivateApplicationNotification
                    object:nil
                     queue:nil
                usingBlock:^(NSNotification*) {
                  CarbonFrontSwitch::applicationActivated();
                }];
    return true;
}

bool AppKitWorkspace::openURL(const QUrl& url)
{
    NSURL* native = [NSURL URLWithString:nsString(url.toString(QUrl::FullyEncoded))];
    return native && [[NSWorkspace sharedWorkspace] openURL:native];
}

QStringList AppKitWorkspace::searchPathForDirectoriesInDomains(SearchPathDirectory directory,
                                                               SearchPathDomainMask domains,
                                                               bool expandTilde) const
{
    QStringList paths;
    for (NSString* path in NSSearchPathForDirectoriesInDomains(static_cast<NSSearchPathDirectory>(directory),
                                                               static_cast<NSSearchPathDomainMask>(domains),
                                                               expandTilde))
        paths.append(textOfNsString(path));
    return paths;
}

void AppKitWorkspace::setCollectionBehavior(QWidget& window, CollectionBehavior behavior)
{
    NSView* view = reinterpret_cast<NSView*>(window.winId());
    [[view window] setCollectionBehavior:static_cast<NSWindowCollectionBehavior>(behavior)];
}

bool AppKitWorkspace::accessibilityDisplayShouldReduceMotion() const
{
    NSWorkspace* workspace = [NSWorkspace sharedWorkspace];
    // By name: earlier systems do not declare it.
    NSString* name = @"accessibilityDisplayShouldReduceMotion";
    if (![workspace respondsToSelector:NSSelectorFromString(name)])
        return false;
    return [[workspace valueForKey:name] boolValue];
}

} // namespace tarnwick
