// SPDX-License-Identifier: MIT
// The one reader of the server's keyboard map: what it gives stays until the server tells of another one.
#include "platform/linux/input/X11KeyboardMap.h"

#include <QProcess>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr quint16 KeyZ = 52;
constexpr quint8 CapsLock = 66;
constexpr quint8 LeftAlt = 64;

void setMap(const QStringList& arguments)
{
    EXPECT_EQ(QProcess::execute(u"setxkbmap"_s, arguments), 0) << arguments.join(u' ').toStdString();
}

QString typed()
{
    const auto keymap = X11KeyboardMap::shared().keymap();
    return keymap ? keymap->text(KeyZ, false, false) : QString();
}

bool isModifier(quint8 key)
{
    return X11KeyboardMap::shared().modifiers().isModifierKey(key);
}

class X11KeyboardMapTest : public ::testing::Test
{
protected:
    X11KeyboardMapTest()
    {
        setMap({u"us"_s, u"-option"_s, u""_s});
        EXPECT_TRUE(QTest::qWaitFor([] { return typed() == u"z"_s && isModifier(CapsLock); }));
        QTest::qWait(50); // one change is told in many events
    }
    ~X11KeyboardMapTest() override { setMap({u"us"_s, u"-option"_s, u""_s}); }
};

TEST_F(X11KeyboardMapTest, isReadOnce)
{
    const auto keymap = X11KeyboardMap::shared().keymap();
    const auto* modifiers = &X11KeyboardMap::shared().modifiers();
    EXPECT_EQ(X11KeyboardMap::shared().keymap(), keymap);
    EXPECT_EQ(&X11KeyboardMap::shared().modifiers(), modifiers);
    EXPECT_NE(X11KeyboardMap::shared().modifiers().altBit(), 0);
    EXPECT_TRUE(isModifier(LeftAlt));
}

TEST_F(X11KeyboardMapTest, anotherMap_isToldAndRead_andWhoeverHoldsTheOldOneKeepsIt)
{
    const auto before = X11KeyboardMap::shared().keymap();
    ASSERT_TRUE(isModifier(CapsLock));
    QSignalSpy changed(&X11KeyboardMap::shared(), &X11KeyboardMap::changed);
    setMap({u"de"_s, u"-option"_s, u"caps:none"_s});
    EXPECT_TRUE(QTest::qWaitFor([&] { return changed.count() > 0; }));
    EXPECT_TRUE(QTest::qWaitFor([] { return typed() == u"y"_s; }));
    EXPECT_TRUE(QTest::qWaitFor([] { return !isModifier(CapsLock); }));
    EXPECT_TRUE(isModifier(LeftAlt));
    EXPECT_EQ(before->text(KeyZ, false, false), u"z"_s);
}

} // namespace
