// SPDX-License-Identifier: MIT
#include "platform/qt/menu/MenuKeys.h"

#include "foundation/Event.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace tarnwick {
namespace {

constexpr quint32 Control = 37;
constexpr quint32 Shift = 50;
constexpr quint32 Alt = 64;
constexpr quint32 CapsLock = 66;
constexpr quint32 Super = 133;
constexpr quint32 A = 38;
constexpr quint32 B = 56;

/// Writes down the keys that it gets.
class Listener final : public QMenu
{
public:
    Listener() { addAction(u"Entry"_s); }
    ~Listener() override { close(); }

    QStringList typed;
    QList<quint64> times;
    std::function<void()> whenTyped;

protected:
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::KeyRelease)
            typed.append(u"released"_s);
        return QMenu::event(event);
    }
    void keyPressEvent(QKeyEvent* event) override
    {
        typed.append((event->modifiers() & Qt::AltModifier ? u"Alt+"_s : QString()) + event->text());
        times.append(event->timestamp());
        if (whenTyped)
            whenTyped();
    }
};

MenuKeys::Press letter(quint32 code, const QString& text, quint64 time = 100, bool repeats = false)
{
    return {.code = code, .time = time, .key = Qt::Key_A, .text = text, .repeats = repeats};
}

MenuKeys::Press modifier(quint32 code, Qt::KeyboardModifiers modifier, quint64 time = 100)
{
    return {.code = code, .time = time, .isModifier = true, .modifier = modifier};
}

class MenuKeysTest : public ::testing::Test
{
protected:
    void SetUp() override { keys.begin(); }

    void show()
    {
        menu.popup(QPoint(10, 10));
        keys.open();
        ASSERT_TRUE(QTest::qWaitFor([this] { return menu.windowHandle()->isExposed(); }));
    }

    MenuKeys keys;
    Listener menu;
};

TEST_F(MenuKeysTest, pressesGoToTheMenu_withTheirTimes_andReleasesDoNot)
{
    show();
    keys.press(letter(A, u"a"_s, 5000));
    keys.release(A, 5010);
    keys.press(letter(A, u"a"_s, 5020));
    EXPECT_EQ(menu.typed, QStringList({u"a"_s, u"a"_s}));
    EXPECT_EQ(menu.times, QList<quint64>({5000, 5020}));
}

TEST_F(MenuKeysTest, keysThatComeBeforeTheMenuCanBeSeen_waitForIt_inOrder)
{
    keys.press(letter(A, u"a"_s));
    keys.press(letter(A, u"a"_s, 140, true));
    keys.press(letter(B, u"b"_s));
    menu.popup(QPoint(10, 10));
    ASSERT_FALSE(menu.windowHandle()->isExposed());
    keys.open();
    keys.press(letter(A, u"c"_s));
    EXPECT_EQ(menu.typed, QStringList());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !menu.typed.isEmpty(); }));
    EXPECT_EQ(menu.typed, QStringList({u"a"_s, u"b"_s, u"c"_s})) << "what repeats meanwhile is dropped";
}

TEST_F(MenuKeysTest, keysThatAreTypedWhileOneIsHandedOn_goBehindIt)
{
    show();
    menu.whenTyped = [this] {
        menu.whenTyped = {};
        keys.press(letter(B, u"b"_s));
        EXPECT_EQ(menu.typed, QStringList(u"a"_s));
    };
    keys.press(letter(A, u"a"_s));
    EXPECT_EQ(menu.typed, QStringList({u"a"_s, u"b"_s}));
}

TEST_F(MenuKeysTest, modifierKeys_areNeverHandedOn_andCountWhileTheyAreDown)
{
    const struct
    {
        MenuKeys::Press key;
        quint64 flag;
    } rows[] = {{modifier(Shift, Qt::ShiftModifier), ShiftKeyMask},
                {modifier(Control, Qt::ControlModifier), CommandKeyMask},
                {modifier(Alt, Qt::AltModifier), AlternateKeyMask},
                {modifier(Super, Qt::MetaModifier), ControlKeyMask},
                {modifier(CapsLock, {}), 0}};
    show();
    for (const auto& [key, flag] : rows) {
        keys.press(key);
        EXPECT_EQ(keys.menuModifierFlags(), flag);
        keys.release(key.code, 200);
        EXPECT_EQ(keys.menuModifierFlags(), 0U);
    }
    EXPECT_EQ(menu.typed, QStringList());
}

TEST_F(MenuKeysTest, changesOfModifiersAreTold)
{
    int told = 0;
    QObject::connect(&keys, &MenuKeys::menuModifierFlagsChanged, &keys, [&] { ++told; });
    keys.press(modifier(Alt, Qt::AltModifier));
    EXPECT_EQ(told, 1);
    keys.release(Alt, 200);
    EXPECT_EQ(told, 2);
    keys.release(Control, 210);
    EXPECT_EQ(told, 2) << "it was down at the start, and never counted";
}

TEST_F(MenuKeysTest, aKeyHasTheModifiersThatWereDownWhenItWasPressed)
{
    keys.press(modifier(Alt, Qt::AltModifier));
    keys.press(letter(A, u"a"_s));
    keys.release(Alt, 200);
    keys.press(letter(B, u"b"_s));
    show();
    EXPECT_TRUE(QTest::qWaitFor([this] { return menu.typed.size() == 2; }));
    EXPECT_EQ(menu.typed, QStringList({u"Alt+a"_s, u"b"_s}));
}

TEST_F(MenuKeysTest, whatStillWaitsAtTheEnd_goesToNoOtherMenu)
{
    keys.press(modifier(Alt, Qt::AltModifier));
    keys.press(letter(A, u"a"_s));
    keys.end();
    keys.begin();
    EXPECT_EQ(keys.menuModifierFlags(), 0U);
    show();
    keys.press(letter(B, u"b"_s));
    EXPECT_EQ(menu.typed, QStringList(u"b"_s));
}

TEST_F(MenuKeysTest, keysThatNoKeyboardMapKnows_doNothing)
{
    show();
    keys.press(letter(256 + A, u"a"_s));
    keys.release(256 + A, 200);
    EXPECT_EQ(menu.typed, QStringList());
}

} // namespace
} // namespace tarnwick
