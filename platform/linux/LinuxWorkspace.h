// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Workspace.h"
#include "platform/linux/ApplicationNames.h"
#include "platform/linux/FrontSwitches.h"
#include "platform/linux/X11ActiveWindow.h"

#include <QObject>

namespace tarnwick {

/// The desktop as X11 and the installed programs tell it.
class LinuxWorkspace final : public QObject, public Workspace
{
    Q_OBJECT

public:
    /// All must outlive this.
    LinuxWorkspace(X11ActiveWindow& activeWindow, ApplicationNames& names, MenuBars& menuBars);

    [[nodiscard]] std::optional<ActiveApplication> activeApplication() const override;
    /// A switch while our menu is open closes the menu; `switched` runs after that.
    [[nodiscard]] bool installAppFrontSwitchedHandler(std::function<void()> switched) override;
    bool openURL(const QUrl& url) override;
    [[nodiscard]] QStringList searchPathForDirectoriesInDomains(SearchPathDirectory directory,
                                                                SearchPathDomainMask domains,
                                                                bool expandTilde) const override;
    void setCollectionBehavior(QWidget& window, CollectionBehavior behavior) override;

private:
    void _frontChanged(const FrontWindow& front);
    void _deliver();

    X11ActiveWindow& _activeWindow;
    ApplicationNames& _names;
    FrontSwitches _switches;
    std::function<void()> _switched;
    int _undelivered = 0;
};

} // namespace tarnwick
