// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Workspace.h"
#include "platform/linux/elements/LinuxReading.h"
#include "platform/linux/workspace/SwitchAnnouncements.h"

#include <memory>

namespace tarnwick {

class LinuxLook;

/// The desktop as its display server and the installed programs tell it.
class LinuxWorkspace final : public Workspace
{
public:
    LinuxWorkspace(std::shared_ptr<LinuxReading> reading, std::unique_ptr<LinuxLook> look);
    /// Without a look: nothing is said of motion.
    explicit LinuxWorkspace(std::shared_ptr<LinuxReading> reading);
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
    /// In a Wayland session, where the X server is XWayland.
    [[nodiscard]] QString commandThatPopsUp() const override;
    [[nodiscard]] bool anotherBuildSeesMore() const override { return _builtWithoutWayland; }
    /// Said of the program: it runs on XWayland in any Wayland session.
    void setBuiltWithoutWayland(bool without) { _builtWithoutWayland = without; }
    [[nodiscard]] bool accessibilityDisplayShouldReduceMotion() const override;

    /// Those that the handler hears of, for whoever has to wait for them. Ours.
    [[nodiscard]] SwitchAnnouncements& announcements() { return _announcements; }

private:
    std::shared_ptr<LinuxReading> _reading;
    SwitchAnnouncements _announcements;
    std::unique_ptr<LinuxLook> _look;
    bool _builtWithoutWayland = false;
};

} // namespace tarnwick
