// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AtspiActiveWindow.h"
#include "platform/linux/front/FrontApplication.h"
#include "platform/linux/x11/X11ActiveWindow.h"

#include <memory>

namespace tarnwick {

/// The front application by the word of the X server. Where that is one of a Wayland session and none of its
/// windows is in front, the native window that is, as far as it can be known: of that nobody tells.
class X11FrontApplication final : public FrontApplication
{
    Q_OBJECT

public:
    /// Looks for the native window in front, for the one of the hint where that tells; none where there
    /// cannot be one.
    using FindNative = std::function<AtspiWindow(const FrontHint& hint)>;

    explicit X11FrontApplication(FindNative findNative);
    /// Finds native windows in the accessibility tree, in a Wayland session. `inTree` must outlive it.
    [[nodiscard]] static std::unique_ptr<FrontApplication> make(AtspiActiveWindow& inTree);

    [[nodiscard]] bool watch() override;
    [[nodiscard]] FrontWindow current() const override;
    [[nodiscard]] std::optional<FrontWindow> lookAgain() override;
    [[nodiscard]] std::optional<FrontWindow> lookAgainFor(const FrontHint& hint) override;
    void afterChangesSoFar(std::function<void()> then) override;

private:
    void _x11Changed(const X11Window& window);
    [[nodiscard]] FrontWindow _nativeInFront(const FrontHint& hint) const;

    X11ActiveWindow _x11;
    FindNative _findNative;
    FrontWindow _native; ///< in front while no window of the X server is, when last looked for
    bool _watched = false;
};

} // namespace tarnwick
