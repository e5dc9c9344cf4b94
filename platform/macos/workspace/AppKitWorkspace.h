// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Workspace.h"
#include "platform/macos/workspace/CarbonFrontSwitch.h"

namespace tarnwick {

/// The desktop as AppKit's workspace describes it.
class AppKitWorkspace final : public Workspace
{
public:
    [[nodiscard]] std::optional<ActiveApplication> activeApplication() const override;
    /// The system knows the name as well: asking for both waits for nobody either.
    [[nodiscard]] std::optional<qint64> activeProcessIdentifier() const override;
    [[nodiscard]] bool installAppFrontSwitchedHandler(std::function<void()> switched) override;
    bool openURL(const QUrl& url) override;
    [[nodiscard]] QStringList searchPathForDirectoriesInDomains(SearchPathDirectory directory,
                                                                SearchPathDomainMask domains,
                                                                bool expandTilde) const override;
    void setCollectionBehavior(QWidget& window, CollectionBehavior behavior) override;
    [[nodiscard]] bool menuBarsHaveSystemMenu() const override { return true; }
    [[nodiscard]] bool accessibilityDisplayShouldReduceMotion() const override;

private:
    CarbonFrontSwitch _frontSwitch;
};

} // namespace tarnwick
