// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/SharedPort.h"

#include <QString>
#include <QStringList>
#include <QUrl>

#include <functional>
#include <optional>

class QWidget;

namespace tarnwick {

/// The desktop that the applications run on. GUI thread only.
class Workspace : public SharedPort<Workspace>
{
public:
    virtual ~Workspace() = default;

    struct ActiveApplication
    {
        QString name; ///< display name, the same text as the "AXTitle" of its element
        std::optional<qint64> processIdentifier;
    };

    enum SearchPathDirectory { PreferencePanesDirectory = 22 };
    enum SearchPathDomainMask { SystemDomainMask = 8 };

    /// The application in front now; nothing when there is none. It may have to be asked for its name, which
    /// takes as long as a read through Accessibility may, and out of the same limit.
    [[nodiscard]] virtual std::optional<ActiveApplication> activeApplication() const = 0;

    /// Which process that is. Never waits for it; nothing when there is none, or it is not known.
    [[nodiscard]] virtual std::optional<qint64> activeProcessIdentifier() const = 0;

    /// `switched` runs once for every switch of the front application, the switch to this one included,
    /// later, from the event loop. Never removed, but by a newer one, which takes the switches for itself.
    /// False when the desktop cannot tell; `switched` is then not kept.
    [[nodiscard]] virtual bool installAppFrontSwitchedHandler(std::function<void()> switched) = 0;

    /// Opens a web page, a file or a settings pane in the program for it. False when nothing could be
    /// started.
    virtual bool openURL(const QUrl& url) = 0;

    /// The paths of a well-known directory in the given domains, possibly none.
    [[nodiscard]] virtual QStringList searchPathForDirectoriesInDomains(SearchPathDirectory directory,
                                                                        SearchPathDomainMask domains,
                                                                        bool expandTilde) const = 0;

    enum CollectionBehavior : quint32 { WindowCollectionBehaviorCanJoinAllSpaces = 1 };

    /// From the next time that `window` is shown, it is on whichever workspace is in front. Does nothing on a
    /// desktop without workspaces.
    virtual void setCollectionBehavior(QWidget& /*window*/, CollectionBehavior /*behavior*/) {}

    /// The command that opens the menu, to be bound to a key of the desktop, in a session that hides from
    /// this program what others do (their windows, their keys, the pointer over them). Empty where nothing
    /// is hidden.
    [[nodiscard]] virtual QString commandThatPopsUp() const { return {}; }

    /// Whether it would not be hidden from a build of this program with more of the desktop's libraries,
    /// where the desktop allows it.
    [[nodiscard]] virtual bool anotherBuildSeesMore() const { return false; }

    /// Whether every menu bar of this desktop begins with a menu of the system.
    [[nodiscard]] virtual bool menuBarsHaveSystemMenu() const { return false; }

    /// Whether the user wants no animation that only decorates.
    [[nodiscard]] virtual bool accessibilityDisplayShouldReduceMotion() const { return false; }
};

} // namespace tarnwick
