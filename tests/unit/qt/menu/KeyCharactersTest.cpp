// SPDX-License-Identifier: MIT
#include "platform/qt/menu/KeyCharacters.h"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(KeyCharacters, whatAnEventHas_standsForItsKeyInAMenu)
{
    int keys = 0;
    for (int key = Qt::Key_Escape; key <= Qt::Key_Eject; ++key) {
        const auto character = characterOfKey(key);
        if (!character)
            continue;
        ++keys;
        EXPECT_EQ(keyOfCharacter(*character), key);
        EXPECT_TRUE(standsForKey(*character) || *character == 0x7F) << key;
    }
    EXPECT_EQ(keys, 35 + 22);
}

TEST(KeyCharacters, keysWithSeveralCharacters_haveOneInEvents)
{
    EXPECT_EQ(keyOfCharacter(0x0008), Qt::Key_Backspace);
    EXPECT_EQ(characterOfKey(Qt::Key_Backspace), char16_t(0x007F));
    EXPECT_EQ(keyOfCharacter(0x000A), Qt::Key_Return);
    EXPECT_EQ(characterOfKey(Qt::Key_Return), char16_t(0x000D));
    EXPECT_EQ(keyOfCharacter(0xF738), Qt::Key_Print);
    EXPECT_EQ(characterOfKey(Qt::Key_Print), char16_t(0xF72E));
}

TEST(KeyCharacters, functionKeys_countUpFromF1)
{
    EXPECT_EQ(characterOfKey(Qt::Key_F1), char16_t(0xF704));
    EXPECT_EQ(keyOfCharacter(0xF726), Qt::Key_F35);
    EXPECT_EQ(characterOfKey(Qt::Key_F35), char16_t(0xF726));
}

TEST(KeyCharacters, whatIsTyped_isTheLayouts)
{
    EXPECT_EQ(characterOfKey(Qt::Key_Space), std::nullopt);
    EXPECT_EQ(characterOfKey(Qt::Key_A), std::nullopt);
    EXPECT_EQ(keyOfCharacter(u'a'), std::nullopt);
    EXPECT_FALSE(standsForKey(u'a'));
}

TEST(KeyCharacters, whatNoKeyHere_has_standsForAKeyAllTheSame)
{
    EXPECT_EQ(keyOfCharacter(0xF747), std::nullopt);
    EXPECT_TRUE(standsForKey(0xF747));
    EXPECT_TRUE(standsForKey(0xF8FE));
    EXPECT_FALSE(standsForKey(0xF8FF)) << "a sign";
}

} // namespace
} // namespace tarnwick
