// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AtspiActiveWindow.h"
#include "platform/linux/front/FrontApplication.h"
#include "platform/linux/wayland/ForeignToplevels.h"

#include <QDeadlineTimer>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

namespace tarnwick {

/// The front application by the word of the applications themselves: no compositor tells us which process a
/// window belongs to. Where one tells that another window is the active one, the applications are asked until
/// one of them says the same; elsewhere it is looked for when somebody wants to know.
class WaylandFrontApplication final : public FrontApplication
{
    Q_OBJECT

public:
    /// Applications know it 8 to 14 ms after the compositor, busy ones later.
    static constexpr std::chrono::milliseconds Patience{300};
    static constexpr std::chrono::milliseconds Step{20};
    /// For so long that no window is active may be on the way to something else.
    static constexpr std::chrono::milliseconds NoneCounts{30};

    /// Both must outlive this.
    WaylandFrontApplication(AtspiActiveWindow& inTree, ForeignToplevels& toplevels);
    [[nodiscard]] static std::unique_ptr<FrontApplication> make(AtspiActiveWindow& inTree,
                                                                ForeignToplevels& toplevels);

    /// While `excused` says yes, that no window is active means nothing: a surface of ours is the reason.
    void setExcuse(std::function<bool()> excused) { _excused = std::move(excused); }

    [[nodiscard]] bool watch() override;
    [[nodiscard]] FrontWindow current() const override { return _front; }
    [[nodiscard]] std::optional<FrontWindow> lookAgain() override;
    void afterChangesSoFar(std::function<void()> then) override;

private:
    void _activeChanged();
    void _noneActive();
    void _begin();
    void _look();
    void _settle();
    [[nodiscard]] FrontWindow _inTreeNow();

    AtspiActiveWindow& _inTree;
    ForeignToplevels& _toplevels;
    std::function<bool()> _excused;
    bool _watching = false;
    FrontWindow _front;
    ForeignToplevels::Window _toplevel = 0; ///< the one that was active when that was found
    QTimer _none;
    QTimer _step; ///< runs while it is not known who is in front
    QDeadlineTimer _patience;
    std::vector<std::function<void()>> _whenSettled;
};

} // namespace tarnwick
