// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/X11EventTaps.h"
#include "platform/linux/hotkeys/X11HotKeys.h"
#include "platform/linux/input/X11HotKeyGuard.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/qt/menu/MenuTracking.h"
#include "tests/contract/app/HotKeysContract.h"
#include "tests/contract/mouse/EventTapsContract.h"

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QProcess>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr quint32 F5 = 96;
constexpr quint32 F6 = 97;
constexpr quint32 J = 38;
constexpr quint32 Command = 0x100;
constexpr quint32 Shift = 0x200;
constexpr quint32 Option = 0x800;
constexpr quint32 Control = 0x1000;

/// An event that we send to ourselves: when it comes, every event before it has been dealt with.
class Marker final : public QAbstractNativeEventFilter
{
public:
    Marker()
    {
        xcb_create_window(_x11.get(), 0, _window, _x11.root(), 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                          XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = _window;
        message.type = XCB_ATOM_CARDINAL;
        xcb_send_event(_x11.get(), 0, _window, 0, static_cast<const char*>(static_cast<void*>(&message)));
        qApp->installNativeEventFilter(this);
        xcb_flush(_x11.get());
    }
    ~Marker() override
    {
        qApp->removeNativeEventFilter(this);
        xcb_destroy_window(_x11.get(), _window);
    }
    Marker(const Marker&) = delete;
    Marker& operator=(const Marker&) = delete;

    bool nativeEventFilter(const QByteArray& /*eventType*/, void* message, qintptr* /*result*/) override
    {
        const auto* event = static_cast<const xcb_client_message_event_t*>(message);
        _came = _came || ((event->response_type & 0x7F) == XCB_CLIENT_MESSAGE && event->window == _window);
        return false;
    }

    [[nodiscard]] bool comes()
    {
        return QTest::qWaitFor([this] { return _came; });
    }

private:
    X11Connection& _x11 = X11Connection::shared();
    xcb_window_t _window = xcb_generate_id(_x11.get());
    bool _came = false;
};

/// Lets the user do something; the server has dealt with it, and so have we, when it returns.
void user(const QStringList& doing)
{
    EXPECT_EQ(QProcess::execute(u"xdotool"_s, doing), 0);
    EXPECT_TRUE(Marker().comes());
    QTest::qWait(0);
}

void press(const QString& combination)
{
    user({u"key"_s, combination});
}

TEST(X11HotKeys, keepsThePromisesOfHotKeys)
{
    X11HotKeys hotKeys;
    hotKeysContract(hotKeys, [] { press(u"alt+F5"_s); });
}

TEST(X11HotKeys, eachModifierIsItsKey)
{
    struct Row
    {
        quint32 modifiers;
        QString combination;
    };
    const Row rows[] = {{Command, u"super+j"_s},
                        {Option, u"alt+j"_s},
                        {Control, u"ctrl+j"_s},
                        {Control | Shift, u"ctrl+shift+j"_s},
                        {Command | Control | Option, u"super+ctrl+alt+j"_s},
                        {0, u"j"_s}};
    for (const Row& row : rows) {
        X11HotKeys hotKeys;
        int presses = 0;
        hotKeys.installEventHandler([&] {
            ++presses;
            return HotKeys::noErr;
        });
        ASSERT_TRUE(hotKeys.registerEventHotKey(J, row.modifiers, {}, 0)) << row.combination.toStdString();
        for (const Row& pressed : rows) {
            presses = 0;
            press(pressed.combination);
            EXPECT_EQ(presses, pressed.modifiers == row.modifiers ? 1 : 0)
                << row.combination.toStdString() << " registered, pressed "
                << pressed.combination.toStdString();
        }
    }
}

TEST(X11HotKeys, severalCombinationsAreHeldAtOnce)
{
    X11HotKeys hotKeys;
    int presses = 0;
    hotKeys.installEventHandler([&] {
        ++presses;
        return HotKeys::noErr;
    });
    const auto first = hotKeys.registerEventHotKey(F5, Option, {}, 0);
    const auto second = hotKeys.registerEventHotKey(F6, Option, {}, 0);
    ASSERT_TRUE(first && second);
    EXPECT_NE(*first, *second);
    EXPECT_FALSE(hotKeys.registerEventHotKey(F5, Option, {}, 0)) << "ours already";
    hotKeys.unregisterEventHotKey(*first);
    press(u"alt+F6"_s);
    EXPECT_EQ(presses, 1);
}

TEST(X11HotKeys, aPressAfterAReleaseThatOnlyTheMenuHasSeen_isNew)
{
    /// As the input of an open menu: the releases of keys are its own.
    class Menu final : public QAbstractNativeEventFilter
    {
    public:
        bool nativeEventFilter(const QByteArray& /*eventType*/, void* message, qintptr* /*result*/) override
        {
            const auto* event = static_cast<const xcb_generic_event_t*>(message);
            return (event->response_type & 0x7F) == XCB_KEY_RELEASE;
        }
    };
    X11HotKeys hotKeys;
    int presses = 0;
    hotKeys.installEventHandler([&] {
        if (++presses > 1)
            return HotKeys::noErr;
        MenuTracking::shared().begin();
        EXPECT_TRUE(X11HotKeyGuard::shared().handOver());
        Menu menu;
        qApp->installNativeEventFilter(&menu);
        user({u"keyup"_s, u"F5"_s, u"keyup"_s, u"alt"_s});
        press(u"alt+F5"_s);
        EXPECT_EQ(presses, 1) << "not while the menu is not quite closed";
        xcb_ungrab_keyboard(X11Connection::shared().get(), XCB_CURRENT_TIME);
        X11HotKeyGuard::shared().handBack();
        MenuTracking::shared().end();
        return HotKeys::noErr;
    });
    ASSERT_TRUE(hotKeys.registerEventHotKey(F5, Option, {}, 0));
    user({u"keydown"_s, u"alt"_s, u"keydown"_s, u"F5"_s});
    EXPECT_TRUE(QTest::qWaitFor([&] { return presses == 2; }));
}

TEST(X11HotKeys, theOneThatEnds_givesItsCombinationsBack)
{
    {
        X11HotKeys ends;
        ASSERT_TRUE(ends.registerEventHotKey(F5, Option, {}, 0));
    }
    X11HotKeys next;
    EXPECT_TRUE(next.registerEventHotKey(F5, Option, {}, 0));
}

/// Keeps what it is given.
struct Later
{
    QList<std::function<void()>> kept;
    TriggerOrder order()
    {
        return [this](std::function<void()> then) { kept.append(std::move(then)); };
    }
    void run()
    {
        for (const auto& then : std::exchange(kept, {}))
            then();
    }
};

TEST(X11HotKeys, aPressComesWhenItsTurnHasCome)
{
    Later later;
    int presses = 0;
    {
        X11HotKeys hotKeys(later.order());
        hotKeys.installEventHandler([&] {
            ++presses;
            return HotKeys::noErr;
        });
        ASSERT_TRUE(hotKeys.registerEventHotKey(J, Option, {}, 0));
        press(u"alt+j"_s);
        EXPECT_EQ(presses, 0);
        EXPECT_EQ(later.kept.size(), 1);
        later.run();
        EXPECT_EQ(presses, 1);
        press(u"alt+j"_s);
        EXPECT_EQ(later.kept.size(), 1);
    }
    later.run();
    EXPECT_EQ(presses, 1) << "nobody is left to hear of it";
}

TEST(X11EventTaps, aPressComesWhenItsTurnHasCome)
{
    Later later;
    int presses = 0;
    {
        X11EventTaps taps(later.order());
        const EventTapRef tap =
            taps.create(EventTaps::AnnotatedSessionEventTap, EventTaps::HeadInsertEventTap,
                        EventTaps::EventTapOptionDefault, 0x2000000, [&](quint32, const TappedEvent* event) {
                            ++presses;
                            return event;
                        });
        taps.addSourceToMainRunLoop(tap);
        taps.enable(tap, true);
        user({u"click"_s, u"8"_s});
        EXPECT_EQ(presses, 0);
        later.run();
        EXPECT_EQ(presses, 1);
        user({u"click"_s, u"8"_s});
    }
    later.run();
    EXPECT_EQ(presses, 1) << "nobody is left to hear of it";
}

TEST(X11EventTaps, aPressIsToldBeforeItsRelease_whereAWindowOfOursMayLearnFromIt)
{
    Later later;
    X11EventTaps taps(later.order());
    int presses = 0;
    const EventTapRef tap =
        taps.create(EventTaps::AnnotatedSessionEventTap, EventTaps::HeadInsertEventTap,
                    EventTaps::EventTapOptionDefault, 0x2000000, [&](quint32, const TappedEvent* event) {
                        ++presses;
                        return event;
                    });
    taps.addSourceToMainRunLoop(tap);
    taps.enable(tap, true);
    QWidget window;
    window.show();
    user({u"click"_s, u"8"_s});
    EXPECT_EQ(presses, 1);
    window.hide();
    user({u"click"_s, u"8"_s});
    EXPECT_EQ(presses, 1);
    later.run();
    EXPECT_EQ(presses, 2);
}

TEST(X11EventTaps, keepsThePromisesOfEventTaps)
{
    X11EventTaps taps;
    eventTapsContract(taps, [] { user({u"click"_s, u"8"_s}); });
}

TEST(X11EventTaps, theMiddleAndTheExtraButtonsAreTheOnesThatCount)
{
    X11EventTaps taps;
    int presses = 0;
    const EventTapRef tap =
        taps.create(EventTaps::AnnotatedSessionEventTap, EventTaps::HeadInsertEventTap,
                    EventTaps::EventTapOptionDefault, 0x2000000, [&](quint32, const TappedEvent* event) {
                        ++presses;
                        return event;
                    });
    taps.addSourceToMainRunLoop(tap);
    taps.enable(tap, true);
    for (int button = 1; button <= 9; ++button) {
        presses = 0;
        user({u"click"_s, QString::number(button)});
        EXPECT_EQ(presses, button == 2 || button >= 8 ? 1 : 0) << button;
    }
}

TEST(X11EventTaps, aCallbackMayReleaseItsOwnTapAndThoseToCome)
{
    X11EventTaps taps;
    int presses = 0;
    EventTapRef older = 0;
    EventTapRef newer = 0;
    older = taps.create(EventTaps::AnnotatedSessionEventTap, EventTaps::HeadInsertEventTap,
                        EventTaps::EventTapOptionDefault, 0x2000000, [&](quint32, const TappedEvent* event) {
                            ++presses;
                            return event;
                        });
    newer = taps.create(EventTaps::AnnotatedSessionEventTap, EventTaps::HeadInsertEventTap,
                        EventTaps::EventTapOptionDefault, 0x2000000, [&](quint32, const TappedEvent* event) {
                            ++presses;
                            taps.release(newer);
                            taps.release(older);
                            return event;
                        });
    for (const EventTapRef tap : {older, newer}) {
        taps.addSourceToMainRunLoop(tap);
        taps.enable(tap, true);
    }
    user({u"click"_s, u"2"_s});
    EXPECT_EQ(presses, 1);
}

} // namespace
