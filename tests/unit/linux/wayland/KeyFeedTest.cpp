// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/KeyFeed.h"

#include "foundation/Event.h"
#include "platform/linux/wayland/FocusKeyFeed.h"

#include <QKeyEvent>
#include <QMenu>
#include <QTest>
#include <gtest/gtest.h>

#include <string_view>
#include <sys/mman.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace tarnwick {
namespace {

/// Two groups: the first letter is an "a" in one and a "q" in the other.
constexpr std::string_view Keymap = R"(xkb_keymap {
xkb_keycodes {
    <AC01> = 38; <LFSH> = 50; <LALT> = 64; <CAPS> = 66; <DEAD> = 34; <LVL3> = 108; <DOWN> = 116; <LWIN> = 133;
};
xkb_types { include "complete" };
xkb_compat { include "complete" };
xkb_symbols {
    key <AC01> { type[1] = "FOUR_LEVEL", type[2] = "ALPHABETIC",
                 symbols[1] = [ a, A, ae, AE ], symbols[2] = [ q, Q ] };
    key <DEAD> { [ dead_acute ] };
    key <DOWN> { [ Down ] };
    key <LFSH> { [ Shift_L ] };
    key <LALT> { [ Alt_L ] };
    key <CAPS> { [ Caps_Lock ] };
    key <LVL3> { [ ISO_Level3_Shift ] };
    key <LWIN> { [ Super_L ] };
    modifier_map Shift { <LFSH> };
    modifier_map Lock { <CAPS> };
    modifier_map Mod1 { <LALT> };
    modifier_map Mod4 { <LWIN> };
    modifier_map Mod5 { <LVL3> };
};
};
)";

// Of the kernel.
constexpr quint32 A = 38 - 8;
constexpr quint32 Shift = 50 - 8;
constexpr quint32 Alt = 64 - 8;
constexpr quint32 CapsLock = 66 - 8;
constexpr quint32 Dead = 34 - 8;
constexpr quint32 Level3 = 108 - 8;
constexpr quint32 Down = 116 - 8;
constexpr quint32 Super = 133 - 8;

class Listener final : public QMenu
{
public:
    Listener() { addAction(u"Entry"_s); }
    ~Listener() override { close(); }

    QStringList typed;
    QList<quint64> times;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        const QString repeat = event->isAutoRepeat() ? u" again"_s : QString();
        typed.append((event->key() == Qt::Key_Down ? u"Down"_s : event->text()) + repeat);
        times.append(event->timestamp());
    }
};

class KeyFeedTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        keys.begin();
        menu.popup(QPoint(10, 10));
        ASSERT_TRUE(QTest::qWaitFor([this] { return menu.windowHandle()->isExposed(); }));
        keys.open();
        feed.setRepeat(0, 0ms);
    }

    void giveKeymap(std::string_view text = Keymap)
    {
        const int file = memfd_create("keymap", MFD_CLOEXEC);
        // Its end is told by a zero, and the file may be longer.
        const std::string content = std::string(text) + '\0' + "more";
        ASSERT_EQ(write(file, content.data(), content.size()), static_cast<ssize_t>(content.size()));
        feed.setKeymap(file, content.size());
    }
    void tap(quint32 key, quint32 time = 100)
    {
        feed.key(key, true, time);
        feed.key(key, false, time + 10);
    }

    MenuKeys keys;
    KeyFeed feed{keys};
    Listener menu;
};

TEST_F(KeyFeedTest, keysTypeWhatTheMapSays_atTheirTimes)
{
    giveKeymap();
    tap(A, 1000);
    feed.key(Shift, true, 1100);
    tap(A, 1200);
    feed.key(Shift, false, 1300);
    feed.key(Level3, true, 1400);
    tap(A, 1500);
    feed.key(Level3, false, 1600);
    tap(Down, 1700);
    EXPECT_EQ(menu.typed, QStringList({u"a"_s, u"A"_s, u"æ"_s, u"Down"_s}));
    EXPECT_EQ(menu.times, QList<quint64>({1000, 1200, 1500, 1700}));
}

TEST_F(KeyFeedTest, theGroupAndTheLocksOfTheCompositorCount)
{
    giveKeymap();
    feed.setLocked(0, 1);
    tap(A);
    feed.setLocked(2, 1); // Caps Lock
    tap(A);
    feed.setLocked(0, 0);
    tap(A);
    EXPECT_EQ(menu.typed, QStringList({u"q"_s, u"Q"_s, u"a"_s}));
}

TEST_F(KeyFeedTest, modifiersAreFollowedByTheirKeys)
{
    giveKeymap();
    const struct
    {
        quint32 key;
        quint64 flag;
    } rows[] = {
        {Shift, ShiftKeyMask}, {Alt, AlternateKeyMask}, {Super, ControlKeyMask}, {CapsLock, 0}, {Level3, 0}};
    for (const auto& [key, flag] : rows) {
        feed.key(key, true, 100);
        EXPECT_EQ(keys.menuModifierFlags(), flag) << key;
        feed.key(key, false, 200);
        EXPECT_EQ(keys.menuModifierFlags(), 0U) << key;
    }
    EXPECT_EQ(menu.typed, QStringList()) << "the menu gets none of them";
}

TEST_F(KeyFeedTest, releasesOfKeysThatWereDownAtTheStart_meanNothing)
{
    giveKeymap();
    feed.key(Alt, false, 100);
    feed.key(A, false, 110);
    EXPECT_EQ(keys.menuModifierFlags(), 0U);
    tap(A);
    EXPECT_EQ(menu.typed, QStringList(u"a"_s));
}

TEST_F(KeyFeedTest, aDeadKeyTypesNothing)
{
    giveKeymap();
    tap(Dead);
    EXPECT_EQ(menu.typed, QStringList(QString()));
}

TEST_F(KeyFeedTest, withoutAMap_orWithABrokenOne_noKeyDoesAnything)
{
    tap(A);
    giveKeymap("xkb_keymap {");
    tap(A);
    EXPECT_EQ(menu.typed, QStringList());
}

TEST_F(KeyFeedTest, aKeyThatIsHeldRepeatsAsTheCompositorSays_untilItIsUpOrAnotherIsPressed)
{
    giveKeymap();
    feed.setRepeat(100, 30ms);
    feed.key(Down, true, 1000);
    EXPECT_TRUE(QTest::qWaitFor([this] { return menu.typed.size() >= 3; }));
    EXPECT_EQ(menu.typed.mid(0, 3), QStringList({u"Down"_s, u"Down again"_s, u"Down again"_s}));
    EXPECT_EQ(menu.times.mid(0, 3), QList<quint64>({1000, 1030, 1040}));
    feed.key(A, true, 1100);
    menu.typed.clear();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !menu.typed.isEmpty(); }));
    EXPECT_EQ(menu.typed.first(), u"a again"_s);
    feed.key(Down, false, 1200);
    menu.typed.clear();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !menu.typed.isEmpty(); })) << "that one is still down";
    feed.key(A, false, 1300);
    menu.typed.clear();
    QTest::qWait(100);
    EXPECT_EQ(menu.typed, QStringList());
}

TEST_F(KeyFeedTest, whatIsDownIsForgottenByReset)
{
    giveKeymap();
    feed.setRepeat(100, 10ms);
    feed.key(Shift, true, 100);
    feed.key(Down, true, 110);
    feed.reset();
    menu.typed.clear();
    QTest::qWait(60);
    EXPECT_EQ(menu.typed, QStringList());
    tap(A);
    EXPECT_EQ(menu.typed, QStringList(u"a"_s));
}

TEST(FocusKeyFeed, aKeyOfTheToolkit_isTheSameToAMenu)
{
    const auto pressOf = [](int key, Qt::KeyboardModifiers modifiers, const QString& text) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, 38, 97, 0, text);
        event.setTimestamp(1234);
        return FocusKeyFeed::pressOf(event);
    };
    const auto letter = pressOf(Qt::Key_A, Qt::AltModifier, u"a"_s);
    EXPECT_EQ(letter.code, 38U);
    EXPECT_EQ(letter.keysym, 97U);
    EXPECT_EQ(letter.time, 1234U);
    EXPECT_EQ(letter.text, u"a"_s);
    EXPECT_FALSE(letter.isModifier);
    EXPECT_EQ(letter.modifier, Qt::NoModifier) << "Alt may be down since the start";
    EXPECT_EQ(pressOf(Qt::Key_A, Qt::ControlModifier, u"\x01"_s).text, u"a"_s);
    EXPECT_EQ(pressOf(Qt::Key_Return, Qt::NoModifier, u"\r"_s).text, u"\r"_s);
    EXPECT_EQ(pressOf(Qt::Key_Super_L, Qt::NoModifier, {}).modifier, Qt::MetaModifier);
    EXPECT_EQ(pressOf(Qt::Key_Alt, Qt::AltModifier, {}).modifier, Qt::AltModifier);
    EXPECT_TRUE(pressOf(Qt::Key_CapsLock, Qt::NoModifier, {}).isModifier);
    EXPECT_EQ(pressOf(Qt::Key_CapsLock, Qt::NoModifier, {}).modifier, Qt::NoModifier);
}

} // namespace
} // namespace tarnwick
