// SPDX-License-Identifier: MIT
#include "platform/linux/popup/X11PopUpKeys.h"

#include "platform/linux/input/X11KeyboardMap.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11EventFilter.h"

#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

#include <functional>

using namespace tarnwick;

namespace {

constexpr quint8 Alt = 64;
constexpr quint8 LeftShift = 50;
constexpr quint8 Z = 52;

/// Sees the keys as the input of an open menu does; the toolkit gets none.
class Keys final : public X11EventFilter
{
public:
    explicit Keys(std::function<void(const xcb_key_press_event_t&)> came) : _came(std::move(came))
    {
        install();
    }

private:
    [[nodiscard]] bool filter(std::uint8_t type, xcb_generic_event_t& event) override
    {
        if (type != XCB_KEY_PRESS)
            return false;
        _came(x11EventAs<xcb_key_press_event_t>(event));
        return true;
    }

    std::function<void(const xcb_key_press_event_t&)> _came;
};

class X11PopUpKeysTest : public ::testing::Test
{
protected:
    [[nodiscard]] static xcb_key_press_event_t pressOf(quint8 keyCode)
    {
        xcb_key_press_event_t event{};
        event.response_type = XCB_KEY_PRESS;
        event.detail = keyCode;
        event.time = 700;
        event.root = X11Connection::shared().root();
        event.same_screen = 1;
        return event;
    }

    void start(const QList<quint8>& down, quint16 modifiers = 0)
    {
        X11PopUpKeys::Start start{X11KeyboardMap::shared().modifiers(), {}, modifiers, {}};
        for (const quint8 keyCode : down)
            start.down.set(keyCode);
        _keys.start(std::move(start));
    }

    QWidget _widget;
    xcb_window_t _keeper = static_cast<xcb_window_t>(_widget.winId());
    X11PopUpKeys _keys{X11Connection::shared(), _keeper};
};

TEST_F(X11PopUpKeysTest, whatIsSentToTheKeeper_comesBack_andOthersWaitForIt)
{
    start({});
    QList<bool> cameBack;
    const Keys seen([&](const xcb_key_press_event_t& event) {
        if (event.event == _keeper) // what another test has sent may be on its way
            cameBack.append(_keys.comesBack(event));
    });
    auto event = pressOf(Z);
    _keys.handToKeeper(event);
    EXPECT_FALSE(_keys.hasToWait(event));
    _keys.sendToKeeper(event);
    EXPECT_TRUE(_keys.hasToWait(event));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !cameBack.isEmpty(); }));
    EXPECT_EQ(cameBack, QList<bool>{true});
    EXPECT_FALSE(_keys.hasToWait(event));
    EXPECT_FALSE(_keys.comesBack(event)) << "the next one is the user's";
}

TEST_F(X11PopUpKeysTest, aKeyOfAnotherWindow_isNoneOfThoseThatWereSent)
{
    start({});
    auto event = pressOf(Z);
    _keys.sendToKeeper(event);
    event.event = X11Connection::shared().root();
    EXPECT_FALSE(_keys.hasToWait(event));
    EXPECT_FALSE(_keys.comesBack(event));
}

TEST_F(X11PopUpKeysTest, whatIsHandedToTheKeeper_isWithoutTheModifiersOfTheHotKey)
{
    start({Alt, Z}, 8);
    auto event = pressOf(Z);
    event.state = 8 | 1;
    _keys.handToKeeper(event);
    EXPECT_EQ(event.event, _keeper);
    EXPECT_EQ(event.state, 1);
    EXPECT_EQ(_keys.menuModifierFlagsAtStart(), 0U);
}

TEST_F(X11PopUpKeysTest, theKeysThatAreDownAtTheStart_goNowhere)
{
    start({Alt, Z});
    EXPECT_EQ(_keys.press(pressOf(Alt)), PopUpKeys::Way::Nowhere);
    EXPECT_EQ(_keys.press(pressOf(Z)), PopUpKeys::Way::Nowhere);
    EXPECT_EQ(_keys.press(pressOf(LeftShift)), PopUpKeys::Way::ToAlternates);
    _keys.up(Z);
    EXPECT_EQ(_keys.press(pressOf(Z)), PopUpKeys::Way::ToMenu);
}

TEST_F(X11PopUpKeysTest, shortcutsAreMadeWithAltButNotWithShiftAlone)
{
    start({});
    EXPECT_TRUE(_keys.isShortcutModifier(Alt));
    EXPECT_FALSE(_keys.isShortcutModifier(LeftShift));
    EXPECT_FALSE(_keys.isShortcutModifier(Z));
    EXPECT_FALSE(_keys.anyShortcutModifierDown());
}

} // namespace
