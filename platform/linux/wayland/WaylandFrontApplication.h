// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AtspiActiveWindow.h"
#include "platform/linux/front/FrontApplication.h"
#include "platform/linux/wayland/Toplevels.h"

#include <QDeadlineTimer>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

namespace tarnwick {

/// The front application by the word of the compositor and of the applications. Where the first tells that
/// another window is the active one, the applications are asked until the window is found: that of the
/// process, where the compositor tells which that is, else the one that says itself that it is active.
/// Where the compositor tells nothing the window is looked for when somebody wants to know.
class WaylandFrontApplication final : public FrontApplication
{
    Q_OBJECT

public:
    /// Applications know it 8 to 14 ms after the compositor, busy ones later.
    static constexpr std::chrono::milliseconds Patience{300};
    static constexpr std::chrono::milliseconds Step{20};
    /// Nobody waits any longer then, but whoever says later that it is in front is believed: it is looked for
    /// after this time, and after twice as long as before until it is longer than the second one.
    static constexpr std::chrono::milliseconds FirstLateStep{300};
    static constexpr std::chrono::milliseconds LastLateStep{4800};
    /// For so long that no window is active may be on the way to something else.
    static constexpr std::chrono::milliseconds NoneCounts{30};
    /// A program that is busy longer is not waited for, where the compositor has told which window it is.
    static constexpr std::chrono::milliseconds MostForAnAnswer{50};

    /// `inTree` must outlive this.
    WaylandFrontApplication(AtspiActiveWindow& inTree, std::shared_ptr<Toplevels> toplevels);
    [[nodiscard]] static std::unique_ptr<FrontApplication> make(AtspiActiveWindow& inTree,
                                                                std::shared_ptr<Toplevels> toplevels);

    using Later = std::function<void(std::function<void()>)>;

    /// While `excused` says yes, that no window is active means nothing: a surface of ours is the reason.
    /// What it goes by may be told after that: it is asked by what `afterNews` is given, which has to run
    /// that once all that the compositor has told of our surfaces by now is known.
    void setExcuse(std::function<bool()> excused, Later afterNews)
    {
        _excused = std::move(excused);
        _afterNews = std::move(afterNews);
    }

    [[nodiscard]] bool watch() override;
    [[nodiscard]] FrontWindow current() const override { return _front; }
    [[nodiscard]] std::optional<FrontWindow> lookAgain() override;
    void afterChangesSoFar(std::function<void()> then) override;

private:
    void _activeChanged();
    void _ended(Toplevels::Window window);
    void _menuBarChanged();
    void _noneActive();
    void _noneActiveForSure();
    void _begin();
    void _look();
    void _lookLate();
    void _become(const FrontWindow& found);
    void _settle();
    /// Whether the window that is known is in front still, by the word of the compositor, and its own program
    /// does not contradict. Other programs are not asked then.
    [[nodiscard]] bool _isStillActive();
    [[nodiscard]] bool _isSettled() const;
    [[nodiscard]] FrontWindow _found();

    AtspiActiveWindow& _inTree;
    std::shared_ptr<Toplevels> _toplevels;
    std::function<bool()> _excused;
    Later _afterNews;
    std::shared_ptr<bool> _wait; ///< while what was told of our surfaces is not known yet
    bool _watching = false;
    FrontWindow _front;
    Toplevels::Window _toplevel = 0; ///< the one that was active when that was found
    QTimer _none;
    QTimer _step; ///< runs while it is not known who is in front
    QDeadlineTimer _patience;
    QTimer _late; ///< runs while somebody may say late who is in front
    std::vector<std::function<void()>> _whenSettled;
};

} // namespace tarnwick
