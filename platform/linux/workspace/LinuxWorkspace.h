// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Workspace.h"
#include "platform/linux/atspi/AtspiActiveWindow.h"
#include "platform/linux/elements/ApplicationNames.h"
#include "platform/linux/workspace/FrontSwitches.h"
#include "platform/linux/x11/X11ActiveWindow.h"

#include <QObject>

#include <functional>
#include <memory>
#include <vector>

namespace tarnwick {

class LinuxLook;

/// The desktop as X11 and the installed programs tell it.
class LinuxWorkspace final : public QObject, public Workspace
{
    Q_OBJECT

public:
    /// All must outlive this.
    LinuxWorkspace(X11ActiveWindow& activeWindow, ApplicationNames& names, MenuBars& menuBars,
                   AtspiActiveWindow& activeInTree);
    ~LinuxWorkspace() override;

    [[nodiscard]] std::optional<ActiveApplication> activeApplication() const override;
    [[nodiscard]] std::optional<qint64> activeProcessIdentifier() const override;
    /// Switches count from here on: what was in front while an alert came before it was another time. A
    /// switch while our menu is open closes the menu; `switched` runs after that.
    [[nodiscard]] bool installAppFrontSwitchedHandler(std::function<void()> switched) override;
    bool openURL(const QUrl& url) override;
    [[nodiscard]] QStringList searchPathForDirectoriesInDomains(SearchPathDirectory directory,
                                                                SearchPathDomainMask domains,
                                                                bool expandTilde) const override;
    void setCollectionBehavior(QWidget& window, CollectionBehavior behavior) override;

    /// Runs `then` from the event loop, once every switch that has happened by now has been announced.
    void afterSwitchesSoFar(std::function<void()> then);

    /// Where windows may be in front that the X server does not know, compares with what was announced last.
    /// Runs `then` once every switch so far has been announced: at once when there is none to announce.
    void announceFrontThen(std::function<void()> then);

    /// Whether the window in front is one that the X server does not know.
    [[nodiscard]] bool frontIsBeside() const;

    /// In a Wayland session, where the X server is XWayland.
    [[nodiscard]] QString commandThatPopsUp() const override;

    /// Without one nothing is said of motion.
    void setLook(std::unique_ptr<LinuxLook> look);
    [[nodiscard]] bool accessibilityDisplayShouldReduceMotion() const override;

private:
    void _frontChanged(const FrontWindow& front);
    void _announce(const FrontWindow& front);
    void _deliver();
    void _whenNothingIsUndelivered(std::function<void()> then);
    [[nodiscard]] FrontWindow _lookBeside();

    X11ActiveWindow& _activeWindow;
    ApplicationNames& _names;
    AtspiActiveWindow& _activeInTree;
    FrontSwitches _switches;
    std::function<void()> _switched;
    int _undelivered = 0;
    std::vector<std::function<void()>> _whenDelivered;
    std::unique_ptr<LinuxLook> _look;
};

} // namespace tarnwick
