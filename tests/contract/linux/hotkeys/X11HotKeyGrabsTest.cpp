// SPDX-License-Identifier: MIT
// What other programs see of a hot key's grabs, and what it makes of a key that is held down.
#include "platform/linux/hotkeys/X11HotKeys.h"
#include "platform/linux/input/X11RawInput.h"
#include "platform/linux/keys/KeyCodes.h"
#include "tests/contract/session/OtherClient.h"

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QProcess>
#include <QTest>
#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr quint32 F5 = 96;
constexpr quint32 Option = 0x800;
constexpr quint16 Lock = XCB_MOD_MASK_LOCK;
constexpr quint16 Alt = XCB_MOD_MASK_1;
constexpr quint16 NumLock = XCB_MOD_MASK_2;
constexpr quint16 Super = XCB_MOD_MASK_4;

quint8 keyF5()
{
    return static_cast<quint8>(x11KeyCodeOf(F5).value_or(0));
}

QSet<quint16> withEachLock(quint16 modifier)
{
    return {modifier, static_cast<quint16>(modifier | Lock), static_cast<quint16>(modifier | NumLock),
            static_cast<quint16>(modifier | Lock | NumLock)};
}

/// The keys of Alt are those of Super, and the other way round, as long as this lives.
class SwappedModifiers
{
public:
    explicit SwappedModifiers(X11Connection& x11) : _x11(x11) { _swap(); }
    ~SwappedModifiers() { _swap(); }
    SwappedModifiers(const SwappedModifiers&) = delete;
    SwappedModifiers& operator=(const SwappedModifiers&) = delete;

private:
    void _swap()
    {
        constexpr int altRow = 3;
        constexpr int superRow = 6;
        const XcbOwned<xcb_get_modifier_mapping_reply_t> map(
            xcb_get_modifier_mapping_reply(_x11.get(), xcb_get_modifier_mapping(_x11.get()), nullptr));
        ASSERT_TRUE(map);
        const int row = map->keycodes_per_modifier;
        auto* keys = xcb_get_modifier_mapping_keycodes(map.get());
        std::swap_ranges(keys + altRow * row, keys + (altRow + 1) * row, keys + superRow * row);
        const XcbOwned<xcb_set_modifier_mapping_reply_t> answer(xcb_set_modifier_mapping_reply(
            _x11.get(), xcb_set_modifier_mapping(_x11.get(), map->keycodes_per_modifier, keys), nullptr));
        ASSERT_TRUE(answer);
        EXPECT_EQ(answer->status, XCB_MAPPING_STATUS_SUCCESS);
    }

    X11Connection& _x11;
};

/// Counts what comes of a key before anybody acts on it.
class PressCount final : public QAbstractNativeEventFilter
{
public:
    explicit PressCount(quint8 keyCode) : _keyCode(keyCode) { qApp->installNativeEventFilter(this); }
    ~PressCount() override { qApp->removeNativeEventFilter(this); }
    PressCount(const PressCount&) = delete;
    PressCount& operator=(const PressCount&) = delete;

    [[nodiscard]] int presses() const { return _presses; }

    bool nativeEventFilter(const QByteArray& /*eventType*/, void* message, qintptr* /*result*/) override
    {
        const auto* event = static_cast<const xcb_key_press_event_t*>(message);
        if ((event->response_type & 0x7F) == XCB_KEY_PRESS && event->detail == _keyCode)
            ++_presses;
        return false;
    }

private:
    quint8 _keyCode;
    int _presses = 0;
};

void user(const QStringList& doing)
{
    EXPECT_EQ(QProcess::execute(u"xdotool"_s, doing), 0);
}

class X11HotKeyGrabs : public ::testing::Test
{
protected:
    void SetUp() override
    {
        _hotKeys.installEventHandler([this] {
            ++_fired;
            return HotKeys::noErr;
        });
    }

    void TearDown() override { user({u"keyup"_s, u"F5"_s, u"keyup"_s, u"alt"_s}); }

    [[nodiscard]] bool registers() { return _hotKeys.registerEventHotKey(F5, Option, {}, 0).has_value(); }

    X11HotKeys _hotKeys;
    OtherClient _other;
    int _fired = 0;
};

TEST(X11RawInput, releasesOfKeys_areTold_whileSomebodyWatchesForThem)
{
    int released = 0;
    const auto connection =
        QObject::connect(&X11RawInput::shared(), &X11RawInput::keyReleased,
                         [&released](quint32 key) { released += key == keyF5() ? 1 : 0; });
    {
        const X11RawInput::KeyWatch watch;
        user({u"key"_s, u"F5"_s});
        EXPECT_TRUE(QTest::qWaitFor([&] { return released == 1; }));
    }
    QObject::disconnect(connection);
}

TEST_F(X11HotKeyGrabs, areOfTheCombinationWithEachLockKey)
{
    ASSERT_TRUE(registers());
    EXPECT_EQ(_other.heldByOthers(keyF5()), withEachLock(Alt));
}

TEST_F(X11HotKeyGrabs, ofAHotKeyThatIsRefused_areAllGivenBack)
{
    const QSet<quint16> combinations = withEachLock(Alt);
    for (const quint16 taken : combinations) {
        OtherClient holder;
        ASSERT_TRUE(holder.grab(keyF5(), taken));
        EXPECT_FALSE(registers()) << taken;
        X11Connection::shared().sync();
        EXPECT_EQ(_other.heldByOthers(keyF5()), QSet<quint16>{taken});
    }
}

TEST_F(X11HotKeyGrabs, followTheModifierToItsOtherPlace_andAreGivenBackAtTheFormerOne)
{
    ASSERT_TRUE(registers());
    {
        const SwappedModifiers swapped(_other.x11());
        EXPECT_TRUE(QTest::qWaitFor([this] { return _other.heldByOthers(keyF5()) == withEachLock(Super); }));
    }
    EXPECT_TRUE(QTest::qWaitFor([this] { return _other.heldByOthers(keyF5()) == withEachLock(Alt); }));
}

TEST_F(X11HotKeyGrabs, ofAKeyThatIsHeldDown_fireOnce_andAgainAtTheNextPress)
{
    ASSERT_TRUE(registers());
    const PressCount seen(keyF5());
    user({u"keydown"_s, u"alt"_s, u"keydown"_s, u"F5"_s});
    ASSERT_TRUE(QTest::qWaitFor([&] { return seen.presses() >= 4; }, 20'000)) << "the server repeats it";
    QCoreApplication::processEvents();
    EXPECT_EQ(_fired, 1);
    user({u"keyup"_s, u"F5"_s, u"keydown"_s, u"F5"_s});
    EXPECT_TRUE(QTest::qWaitFor([this] { return _fired == 2; }));
}

TEST_F(X11HotKeyGrabs, ofAKeyThatIsDownAtTheRegistration_fireAtTheNextPress)
{
    user({u"keydown"_s, u"alt"_s, u"keydown"_s, u"F5"_s});
    ASSERT_TRUE(registers());
    const PressCount seen(keyF5());
    ASSERT_TRUE(QTest::qWaitFor([&] { return seen.presses() >= 4; }, 20'000)) << "the server repeats it";
    QCoreApplication::processEvents();
    EXPECT_EQ(_fired, 0);
    user({u"keyup"_s, u"F5"_s, u"keydown"_s, u"F5"_s});
    EXPECT_TRUE(QTest::qWaitFor([this] { return _fired == 1; }));
}

} // namespace
