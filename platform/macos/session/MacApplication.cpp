// SPDX-License-Identifier: MIT
#include "platform/macos/session/MacApplication.h"

#include "platform/macos/system/MacBundle.h"
#include "platform/macos/workspace/AppKitWindows.h"
#include "platform/qt/menu/MenuTracking.h"

#include <QEvent>
#include <QWidget>

#include <utility>

using namespace Qt::StringLiterals;

namespace tarnwick {
namespace {

/// Whether a window of ours has just been shown or raised.
bool cameToTheFront(const QObject& receiver, const QEvent& event)
{
    if ((event.type() != QEvent::Show && event.type() != QEvent::ZOrderChange) || !receiver.isWidgetType())
        return false;
    const auto& widget = static_cast<const QWidget&>(receiver);
    return widget.isVisible() && (widget.windowType() == Qt::Window || widget.windowType() == Qt::Dialog);
}

} // namespace

MacApplication::MacApplication(QtEventConverter converter)
    : QtApplication(std::move(converter), CommandKeyMask)
{
}

void MacApplication::terminate(ActionSender* sender)
{
    QtApplication::terminate(sender);
    if (!terminating())
        return;
    // These run loops of their own, which the end of Qt's does not reach.
    MenuTracking::shared().cancel();
    abortModalAlert();
}

void MacApplication::activateIgnoringOtherApps(bool ignoringOtherApps)
{
    activateApplication(ignoringOtherApps);
    QtApplication::activateIgnoringOtherApps(ignoringOtherApps);
}

QString MacApplication::bundlePath() const
{
    const QString path = mainBundlePath();
    // A program without a bundle is given the folder it lies in.
    return path.endsWith(u".app"_s) ? path : QtApplication::bundlePath();
}

QString MacApplication::pathForResourceOfType(const QString& name, const QString& type) const
{
    const QString path = mainBundleResource(name, type);
    return path.isEmpty() ? QtApplication::pathForResourceOfType(name, type) : path;
}

bool MacApplication::eventFilter(QObject* receiver, QEvent* event)
{
    const bool handled = QtApplication::eventFilter(receiver, event);
    if (!handled && cameToTheFront(*receiver, *event))
        orderFrontRegardless(static_cast<QWidget&>(*receiver));
    return handled;
}

} // namespace tarnwick

#include "moc_MacApplication.cpp"
