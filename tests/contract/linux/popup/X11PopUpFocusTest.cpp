// SPDX-License-Identifier: MIT
#include "platform/linux/popup/X11PopUpFocus.h"

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11EventFilter.h"
#include "platform/linux/x11/X11Windows.h"
#include "tests/contract/session/DesktopControl.h"
#include "tests/contract/session/OtherClient.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

#include <csignal>
#include <optional>

using namespace tarnwick;

namespace {

/// While it is stopped, the focus is where the test puts it, be it nowhere.
class StoppedWindowManager
{
public:
    StoppedWindowManager()
    {
        auto& x11 = X11Connection::shared();
        const auto window =
            x11.property32(x11.root(), "_NET_SUPPORTING_WM_CHECK").value_or(QList<quint32>()).value(0);
        _process = static_cast<pid_t>(X11Windows(x11).processIdentifier(window).value_or(0));
        EXPECT_GT(_process, 0);
        if (_process > 0)
            kill(_process, SIGSTOP);
    }
    ~StoppedWindowManager()
    {
        if (_process > 0)
            kill(_process, SIGCONT);
    }
    StoppedWindowManager(const StoppedWindowManager&) = delete;
    StoppedWindowManager& operator=(const StoppedWindowManager&) = delete;

private:
    pid_t _process = 0;
};

class X11PopUpFocusTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        _next = focusedWindow();
        _front = focusedWindow();
    }

    /// As the input of an open menu does: hands each event on.
    class Feed final : public X11EventFilter
    {
    public:
        explicit Feed(X11PopUpFocus& focus) : _focus(focus) { install(); }

    private:
        [[nodiscard]] bool filter(std::uint8_t /*type*/, xcb_generic_event_t& event) override
        {
            _focus.see(event);
            return false;
        }

        X11PopUpFocus& _focus;
    };

    [[nodiscard]] xcb_window_t focusedWindow()
    {
        const xcb_window_t window = desktop_control::makeWindow({}, false, _other.x11());
        EXPECT_TRUE(QTest::qWaitFor(
            [window] {
                desktop_control::activate(window);
                return focusWindow(X11Connection::shared()) == window;
            },
            20'000));
        return window;
    }

    void start(bool byButton)
    {
        _stopped.emplace();
        _focus.watch(_front);
        _focus.start(outermostWindow(X11Connection::shared(), _front), byButton);
    }

    OtherClient _other;
    std::optional<StoppedWindowManager> _stopped;
    xcb_window_t _front = XCB_WINDOW_NONE;
    xcb_window_t _next = XCB_WINDOW_NONE;
    X11PopUpFocus _focus{X11Connection::shared()};
    Feed _feed{_focus};
    QSignalSpy _lost{&_focus, &X11PopUpFocus::lost};
    QSignalSpy _moved{&_focus, &X11PopUpFocus::moved};
};

TEST_F(X11PopUpFocusTest, openedByKey_isLostWhenAnotherWindowGetsTheFocus)
{
    start(false);
    EXPECT_TRUE(_focus.isWhereItWas());
    desktop_control::focus(_next);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !_lost.isEmpty(); }));
    EXPECT_TRUE(_moved.isEmpty());
    EXPECT_FALSE(_focus.isWhereItWas());
}

TEST_F(X11PopUpFocusTest, openedByButton_followsTheFocusToTheWindowThatThePressGaveIt)
{
    start(true);
    desktop_control::focus(_next);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !_moved.isEmpty(); }));
    EXPECT_TRUE(_lost.isEmpty());
    EXPECT_TRUE(_focus.isWhereItWas());
}

TEST_F(X11PopUpFocusTest, openedByButton_waitsForAFocusThatIsOnItsWay)
{
    start(true);
    desktop_control::focus(XCB_WINDOW_NONE);
    EXPECT_FALSE(QTest::qWaitFor([this] { return !_lost.isEmpty() || !_moved.isEmpty(); }, 100));
    desktop_control::focus(_next);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !_moved.isEmpty(); }));
    EXPECT_TRUE(_lost.isEmpty());
}

TEST_F(X11PopUpFocusTest, openedByButton_isLostWhenTheFocusNeverComes)
{
    QElapsedTimer time;
    time.start();
    start(true);
    desktop_control::focus(XCB_WINDOW_NONE);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !_lost.isEmpty(); }));
    EXPECT_GE(time.elapsed(), X11PopUpFocus::FollowsPress.count());
}

TEST_F(X11PopUpFocusTest, settled_looksNoLongerForAFocusOnItsWay)
{
    start(true);
    desktop_control::focus(XCB_WINDOW_NONE);
    EXPECT_FALSE(QTest::qWaitFor([this] { return !_lost.isEmpty(); }, 100));
    _focus.settle();
    EXPECT_FALSE(QTest::qWaitFor([this] { return !_lost.isEmpty(); }, 700));
}

} // namespace
