// SPDX-License-Identifier: MIT
#include "platform/macos/session/AppKitAlerts.h"

#include "platform/macos/session/AlertAnswer.h"
#include "platform/macos/system/NsText.h"
#include "platform/macos/workspace/AppKitWindows.h"

#include <QPointer>
#include <QWidget>

#import <AppKit/AppKit.h>
#include <utility>

namespace tarnwick {
namespace {

static_assert(ModalSessionContinues == NSModalResponseContinue);

/// Autoreleased.
NSAlert* nativeAlert(const Alert& alert)
{
    NSAlert* native = [[[NSAlert alloc] init] autorelease];
    [native setAlertStyle:static_cast<NSAlertStyle>(alert.style)];
    [native setMessageText:nsString(alert.messageText)];
    [native setInformativeText:nsString(alert.informativeText)];
    for (const QString& title : alert.buttonTitles)
        [native addButtonWithTitle:nsString(title)];
    return native;
}

} // namespace

int AppKitAlerts::runModal(const Alert& alert)
{
    activateApplication(true);
    NSAlert* native = nativeAlert(alert);
    return answerOf(alert, modalAnswer([native] { return static_cast<qint64>([native runModal]); }));
}

void AppKitAlerts::beginSheetModalForWindow(const Alert& alert, QWidget* window,
                                            std::function<void(int returnCode)> didEnd)
{
    // Copies, which the block keeps until the sheet has ended.
    const QPointer<QWidget> parent(window);
    const Alert shown = alert;
    const auto ended = std::move(didEnd);
    NSView* view = reinterpret_cast<NSView*>(window->winId());
    [nativeAlert(alert) beginSheetModalForWindow:[view window]
                               completionHandler:^(NSInteger nativeCode) {
                                 if (parent)
                                     ended(answerOf(shown, nativeCode));
                               }];
}

} // namespace tarnwick
