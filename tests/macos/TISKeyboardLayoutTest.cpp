// SPDX-License-Identifier: MIT
#include "platform/macos/hotkeys/TISKeyboardLayout.h"

#include "tests/macos/MacTest.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

class TISKeyboardLayoutTest : public MacTest
{
protected:
    TISKeyboardLayout layout;
};

TEST_F(TISKeyboardLayoutTest, keyTranslate_handsEveryArgumentOn)
{
    mac.inputSource->characters = {{{6, 0xA00}, u"Ω"_s}};
    const auto table = layout.copyCurrentKeyboardInputSource();
    ASSERT_TRUE(table);
    quint32 deadKeys = 0;
    EXPECT_EQ(table->keyTranslate(6, 3, 0xA00, layout.keyboardType(), 0, deadKeys), u"Ω"_s);
    // The layout, key code, action display, the modifier state as it is (unshifted), keyboard type, options,
    // dead keys, room for four units, their number, the units.
    EXPECT_EQ(mac.callsOf(u"UCKeyTranslate"_s),
              (QList<QVariantList>{{true, 6, 3, 0xA00, 44, 0, 0, 4, true, true}}));
    EXPECT_EQ(mac.callsOf(u"TISGetInputSourceProperty"_s),
              (QList<QVariantList>{
                  {u"TISCopyCurrentKeyboardInputSource 1"_s, u"TISPropertyUnicodeKeyLayoutData"_s}}));
    EXPECT_EQ(deadKeys, 7u) << "the dead-key state comes back";
    EXPECT_TRUE(table->keyTranslate(6, 3, 0xA00, layout.keyboardType(), 0, deadKeys));
    EXPECT_EQ(mac.callsOf(u"UCKeyTranslate"_s).last().at(6), 7) << "and goes into the next translation";
}

TEST_F(TISKeyboardLayoutTest, keyTranslate_givesAtMostFourUnits)
{
    mac.inputSource->characters = {{{0, 0}, u"abcdef"_s}, {{1, 0}, u"a"_s}};
    const auto table = layout.copyCurrentKeyboardInputSource();
    quint32 deadKeys = 0;
    EXPECT_EQ(table->keyTranslate(0, 3, 0, 44, 0, deadKeys), u"abcd"_s);
    EXPECT_EQ(table->keyTranslate(1, 3, 0, 44, 0, deadKeys), u"a"_s);
    EXPECT_EQ(table->keyTranslate(2, 3, 0, 44, 0, deadKeys), u""_s) << "a key that types nothing";
}

TEST_F(TISKeyboardLayoutTest, failedTranslation_isNothing)
{
    const auto table = layout.copyCurrentKeyboardInputSource();
    mac.fail(u"UCKeyTranslate"_s, -50);
    quint32 deadKeys = 3;
    EXPECT_FALSE(table->keyTranslate(6, 3, 0, 44, 0, deadKeys));
    EXPECT_EQ(deadKeys, 3u);
}

TEST_F(TISKeyboardLayoutTest, missingInputSourceOrKeyTable_isNull)
{
    mac.inputSource->hasKeyLayout = false;
    EXPECT_FALSE(layout.copyCurrentKeyboardInputSource());
    mac.inputSource.reset();
    EXPECT_FALSE(layout.copyCurrentKeyboardInputSource());
}

TEST_F(TISKeyboardLayoutTest, keyboardType_isTheLastKeyboards)
{
    mac.keyboardType = 0xC8;
    EXPECT_EQ(layout.keyboardType(), 0xC8);
}

TEST_F(TISKeyboardLayoutTest, changeOfTheLayout_isToldEveryObserver)
{
    int first = 0;
    int second = 0;
    layout.addSelectedKeyboardInputSourceChangedObserver([&] { ++first; });
    layout.addSelectedKeyboardInputSourceChangedObserver([&] { ++second; });
    // The distributed centre, an observer, its callback, the notice's name, from any sender, delivered at
    // once.
    const QVariantList expected{u"CFNotificationCenterGetDistributedCenter"_s,
                                true,
                                true,
                                u"com.apple.Carbon.TISNotifySelectedKeyboardInputSourceChanged"_s,
                                QVariant(),
                                4};
    EXPECT_EQ(mac.callsOf(u"CFNotificationCenterAddObserver"_s), (QList<QVariantList>{expected, expected}));
    mac.changeInputSource({});
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 1);
}

} // namespace tarnwick
