// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AtspiActiveWindow.h"
#include "platform/linux/front/FrontApplication.h"

#include <memory>

namespace tarnwick {

/// The front application by the word of the applications themselves: no compositor tells us which process a
/// window belongs to. It is looked for when somebody wants to know.
class WaylandFrontApplication final : public FrontApplication
{
    Q_OBJECT

public:
    /// `inTree` must outlive this.
    explicit WaylandFrontApplication(AtspiActiveWindow& inTree) : _inTree(inTree) {}
    [[nodiscard]] static std::unique_ptr<FrontApplication> make(AtspiActiveWindow& inTree);

    [[nodiscard]] bool watch() override;
    [[nodiscard]] FrontWindow current() const override { return _front; }
    [[nodiscard]] std::optional<FrontWindow> lookAgain() override;
    void afterChangesSoFar(std::function<void()> then) override;

private:
    AtspiActiveWindow& _inTree;
    FrontWindow _front;
};

} // namespace tarnwick
