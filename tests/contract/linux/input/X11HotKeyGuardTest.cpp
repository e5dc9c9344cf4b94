// SPDX-License-Identifier: MIT
#include "platform/linux/input/X11HotKeyGuard.h"

#include "platform/linux/hotkeys/X11HotKeys.h"
#include "platform/linux/input/X11Focus.h"
#include "platform/linux/x11/X11Thread.h"

#include <QProcess>
#include <QTest>
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

using namespace tarnwick;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr quint32 F5 = 96;
constexpr quint32 Option = 0x800;
constexpr auto asLongAsItTakes = 20s;

/// Another program, with a window that has the focus. It looks at everything on its own connection, and the
/// toolkit's event loop does not run meanwhile, as in a pause.
class Application
{
public:
    Application() { _focus(_window = _makeWindow()); }
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    /// The presses and releases that have come, by their X key codes; releases are negative.
    QList<int> keys()
    {
        _x11.sync();
        while (const XcbOwned<xcb_generic_event_t> event{xcb_poll_for_event(_x11.get())}) {
            const auto type = event->response_type & ~0x80;
            const int code =
                static_cast<const xcb_key_press_event_t*>(static_cast<const void*>(event.get()))->detail;
            if (type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE)
                _keys.append(type == XCB_KEY_PRESS ? code : -code);
        }
        return std::exchange(_keys, {});
    }

    /// Waits for as many as that.
    QList<int> keys(qsizetype count)
    {
        QList<int> come = keys();
        const auto end = std::chrono::steady_clock::now() + asLongAsItTakes;
        while (come.size() < count && std::chrono::steady_clock::now() < end) {
            std::this_thread::sleep_for(2ms);
            come += keys();
        }
        return come;
    }

    bool somebodyHasTheKeyboard()
    {
        const XcbOwned<xcb_grab_keyboard_reply_t> reply(
            xcb_grab_keyboard_reply(_x11.get(),
                                    xcb_grab_keyboard(_x11.get(), 0, _window, XCB_CURRENT_TIME,
                                                      XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                                    nullptr));
        if (!reply || reply->status != XCB_GRAB_STATUS_SUCCESS)
            return true;
        xcb_ungrab_keyboard(_x11.get(), XCB_CURRENT_TIME);
        _x11.sync();
        return false;
    }

    bool comesToBe(bool held)
    {
        const auto end = std::chrono::steady_clock::now() + asLongAsItTakes;
        while (somebodyHasTheKeyboard() != held) {
            if (std::chrono::steady_clock::now() > end)
                return false;
            std::this_thread::sleep_for(2ms);
        }
        return true;
    }

    /// Another window of it gets the focus, and the first one goes.
    void closeWindow()
    {
        const xcb_window_t next = _makeWindow();
        _focus(next);
        xcb_destroy_window(_x11.get(), std::exchange(_window, next));
        _x11.sync();
    }

private:
    xcb_window_t _makeWindow()
    {
        const xcb_window_t window = xcb_generate_id(_x11.get());
        const std::uint32_t values[] = {1, XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE};
        xcb_create_window(_x11.get(), XCB_COPY_FROM_PARENT, window, _x11.root(), 0, 0, 50, 50, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
        xcb_map_window(_x11.get(), window);
        _x11.sync();
        return window;
    }

    /// A window manager that has just seen another window go may still be about to move the focus.
    void _focus(xcb_window_t window)
    {
        for (int rests = 0; rests < 20; ++rests) {
            if (focusWindow(_x11) != window) {
                xcb_set_input_focus(_x11.get(), XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
                rests = 0;
            }
            std::this_thread::sleep_for(5ms);
        }
    }

    OwnX11Connection _connection = connectToX11();
    X11Connection _x11{_connection.get()};
    xcb_window_t _window = XCB_WINDOW_NONE;
    QList<int> _keys;
};

void user(const QStringList& doing)
{
    EXPECT_EQ(QProcess::execute(u"xdotool"_s, doing), 0);
}

constexpr int altKey = 64;
constexpr int f5Key = 71;
constexpr int f6Key = 72;

class TheGuardOfAHotKey : public testing::Test
{
protected:
    void SetUp() override
    {
        hotKeys.installEventHandler([this] {
            ++presses;
            return HotKeys::noErr;
        });
        ASSERT_TRUE(hotKeys.registerEventHotKey(F5, Option, {}, 0));
        application.keys();
    }

    bool offered()
    {
        return QTest::qWaitFor([this] { return presses > 0; });
    }

    X11HotKeys hotKeys;
    Application application;
    int presses = 0;
};

TEST_F(TheGuardOfAHotKey, keepsTheChordAndWhatFollowsFromTheApplication_whileTheEventLoopIsAway)
{
    user({u"keydown"_s, u"alt"_s, u"keydown"_s, u"F5"_s});
    ASSERT_TRUE(application.comesToBe(true));
    std::this_thread::sleep_for(30ms);
    user({u"keyup"_s, u"F5"_s, u"keyup"_s, u"alt"_s, u"key"_s, u"F6"_s});
    EXPECT_TRUE(application.somebodyHasTheKeyboard());
    EXPECT_EQ(application.keys(), QList<int>{altKey}) << "pressed before the hot key was";
    EXPECT_TRUE(offered());
    EXPECT_TRUE(application.comesToBe(false)) << "no menu has come of it";
    user({u"key"_s, u"F6"_s});
    EXPECT_EQ(application.keys(2), (QList<int>{f6Key, -f6Key}));
    EXPECT_EQ(presses, 1);
}

TEST_F(TheGuardOfAHotKey, handsOverWhatWasTyped)
{
    user({u"keydown"_s, u"alt"_s, u"keydown"_s, u"F5"_s});
    ASSERT_TRUE(application.comesToBe(true));
    user({u"keyup"_s, u"F5"_s, u"keyup"_s, u"alt"_s, u"key"_s, u"F6"_s});
    std::optional<X11HotKeyGuard::Taken> taken;
    hotKeys.installEventHandler([&] {
        taken = X11HotKeyGuard::shared().handOver();
        return HotKeys::noErr;
    });
    ASSERT_TRUE(QTest::qWaitFor([&] { return taken.has_value(); }));
    QList<int> keys;
    for (const auto& key : taken->keys)
        keys.append((key.response_type & ~0x80) == XCB_KEY_PRESS ? key.detail : -key.detail);
    EXPECT_EQ(keys, (QList<int>{-f5Key, -altKey, f6Key, -f6Key}));
    EXPECT_TRUE(taken->down.test(f5Key));
    EXPECT_TRUE(taken->down.test(altKey));
    EXPECT_EQ(taken->down.count(), 2U);
    EXPECT_TRUE(application.somebodyHasTheKeyboard()) << "whoever took it over gives it back";
    xcb_ungrab_keyboard(X11Connection::shared().get(), XCB_CURRENT_TIME);
    xcb_flush(X11Connection::shared().get());
    X11HotKeyGuard::shared().handBack();
    EXPECT_TRUE(application.comesToBe(false));
}

TEST_F(TheGuardOfAHotKey, opensOnceForTwoChords)
{
    user({u"key"_s, u"--delay"_s, u"60"_s, u"alt+F5"_s, u"alt+F5"_s});
    EXPECT_TRUE(offered());
    EXPECT_TRUE(application.comesToBe(false));
    QTest::qWait(50);
    EXPECT_EQ(presses, 1);
}

TEST_F(TheGuardOfAHotKey, holdsOnWhenTheWindowGoesThatHadTheFocus)
{
    user({u"keydown"_s, u"alt"_s, u"keydown"_s, u"F5"_s});
    ASSERT_TRUE(application.comesToBe(true));
    user({u"keyup"_s, u"F5"_s, u"keyup"_s, u"alt"_s});
    application.keys();
    application.closeWindow();
    ASSERT_TRUE(application.comesToBe(true));
    user({u"key"_s, u"F6"_s});
    EXPECT_EQ(application.keys(), QList<int>());
    EXPECT_TRUE(offered());
    EXPECT_TRUE(application.comesToBe(false));
}

TEST_F(TheGuardOfAHotKey, givesUpWhenTheEventLoopStaysAway)
{
    const auto before = std::chrono::steady_clock::now();
    user({u"keydown"_s, u"alt"_s, u"keydown"_s, u"F5"_s});
    ASSERT_TRUE(application.comesToBe(true));
    user({u"keyup"_s, u"F5"_s, u"keyup"_s, u"alt"_s});
    ASSERT_TRUE(application.comesToBe(false));
    EXPECT_GE(std::chrono::steady_clock::now() - before, 5s) << "a switch may take that long";
    application.keys();
    user({u"key"_s, u"F6"_s});
    EXPECT_EQ(application.keys(2), (QList<int>{f6Key, -f6Key}));
    EXPECT_TRUE(offered()) << "the press itself is not lost";
}

TEST_F(TheGuardOfAHotKey, leavesOtherKeysAlone)
{
    user({u"key"_s, u"F5"_s, u"key"_s, u"ctrl+F5"_s});
    // With Control and both releases.
    EXPECT_EQ(application.keys(6).count(f5Key), 2);
    EXPECT_FALSE(application.somebodyHasTheKeyboard());
}

TEST_F(TheGuardOfAHotKey, leavesAHotKeyAloneThatIsGivenBack)
{
    const auto another = hotKeys.registerEventHotKey(97, Option, {}, 0);
    ASSERT_TRUE(another);
    hotKeys.unregisterEventHotKey(*another);
    X11Connection::shared().sync();
    user({u"key"_s, u"alt+F6"_s});
    EXPECT_FALSE(application.somebodyHasTheKeyboard());
    EXPECT_EQ(application.keys(4).count(f6Key), 1);
}

} // namespace
