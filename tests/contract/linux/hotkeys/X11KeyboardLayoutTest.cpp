// SPDX-License-Identifier: MIT
// What keys type on the layouts of the X server.
#include "platform/linux/hotkeys/X11KeyboardLayout.h"

#include "tests/contract/session/OtherClient.h"

#include <QProcess>
#include <QTest>
#include <gtest/gtest.h>

// The C header has a member named as a C++ keyword.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr int KeyZ = 6;

void setLayouts(const QString& layouts)
{
    EXPECT_EQ(QProcess::execute(u"setxkbmap"_s, {layouts}), 0) << layouts.toStdString();
}

/// As another program does it: chooses one of the layouts.
void lockGroup(quint8 group)
{
    OtherClient other;
    xcb_connection_t* connection = other.x11().get();
    xcb_xkb_use_extension_unchecked(connection, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION);
    xcb_xkb_latch_lock_state(connection, XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1, group, 0, 0, 0);
    other.x11().sync();
}

QString typed(const X11KeyboardLayout& layout, quint16 keyCode, quint32 state = 0)
{
    quint32 deadKeys = 0;
    const auto source = layout.copyCurrentKeyboardInputSource();
    return source ? source->keyTranslate(keyCode, 3, state, layout.keyboardType(), 0, deadKeys)
                        .value_or(u"(failed)"_s)
                  : u"(no layout)"_s;
}

class KeyboardLayoutOnX11 : public ::testing::Test
{
protected:
    KeyboardLayoutOnX11() { setLayouts(u"us"_s); }
    ~KeyboardLayoutOnX11() override { setLayouts(u"us"_s); }
};

TEST_F(KeyboardLayoutOnX11, keys_typeWhatTheServersMapSays)
{
    const X11KeyboardLayout layout;
    EXPECT_TRUE(QTest::qWaitFor([&] { return typed(layout, KeyZ) == u"z"_s; }));
    EXPECT_EQ(typed(layout, KeyZ, 0x200), u"Z"_s);
    EXPECT_EQ(typed(layout, KeyZ, 0x800), u"z"_s) << "Alt does not change the letter";
    EXPECT_EQ(typed(layout, KeyZ, 0xA00), u"Z"_s);
    EXPECT_EQ(typed(layout, 52), u""_s) << "an unassigned key types nothing";
    EXPECT_EQ(typed(layout, 200), u"(failed)"_s);
}

TEST_F(KeyboardLayoutOnX11, newMap_isTold_andTypes)
{
    X11KeyboardLayout layout;
    EXPECT_TRUE(QTest::qWaitFor([&] { return typed(layout, KeyZ) == u"z"_s; }));
    int changes = 0;
    layout.addSelectedKeyboardInputSourceChangedObserver([&] { ++changes; });
    setLayouts(u"de"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return changes > 0; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return typed(layout, KeyZ) == u"y"_s; }));
}

TEST_F(KeyboardLayoutOnX11, newGroup_isTold_andTypes)
{
    setLayouts(u"us,ru"_s);
    X11KeyboardLayout layout;
    EXPECT_TRUE(QTest::qWaitFor([&] { return typed(layout, 0) == u"a"_s; }));
    int changes = 0;
    layout.addSelectedKeyboardInputSourceChangedObserver([&] { ++changes; });
    lockGroup(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return changes > 0; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return typed(layout, 0) == u"ф"_s; })) << "the new map was told, too";
    lockGroup(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return typed(layout, 0) == u"a"_s; }));
}

} // namespace
