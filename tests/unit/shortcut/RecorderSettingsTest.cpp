// SPDX-License-Identifier: MIT
#include "shortcut/RecorderSettings.h"

#include "shortcut/Archive.h"

#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr quint64 Everything = 0x9E0000;

RecorderSettings filledSettings()
{
    RecorderSettings settings;
    settings.autosaveName = u"trigger"_s;
    settings.setStyle(1);
    settings.isAnimating = true;
    settings.keyCombo = {ControlKeyMask | CommandKeyMask, 7};
    settings.hasKeyChars = true;
    settings.keyChars = u"X"_s;
    settings.keyCharsIgnoringModifiers = u"x"_s;
    settings.allowedFlags = ControlKeyMask | CommandKeyMask;
    settings.requiredFlags = ControlKeyMask;
    settings.allowsKeyOnly = true;
    settings.escapeKeysRecord = true;
    settings.globalHotKeys = true;
    return settings;
}

RecorderSettings archivedAndBack(const RecorderSettings& settings, Archive::Form form)
{
    Archive archive(form);
    settings.encode(archive);
    RecorderSettings decoded;
    decoded.decode(archive);
    return decoded;
}

} // namespace

TEST(RecorderSettings, freshOnes_allowEveryModifier_andHoldNoCombination)
{
    const RecorderSettings settings;
    EXPECT_TRUE(settings.autosaveName.isNull());
    EXPECT_EQ(settings.allowedFlags, Everything);
    EXPECT_EQ(settings.requiredFlags, 0U);
    EXPECT_EQ(settings.keyCombo, (KeyCombo{0, -1}));
    EXPECT_FALSE(settings.hasKeyChars);
}

TEST(RecorderSettings, filtered_isWhatIsAllowed_andAllThatIsRequired)
{
    struct Row
    {
        const char* name;
        quint64 allowed;
        quint64 required;
        quint64 given;
        quint64 filtered;
    };
    const Row rows[] = {
        {"an allowed modifier stays", Everything, 0, ShiftKeyMask, ShiftKeyMask},
        {"another is dropped", CommandKeyMask, 0, ShiftKeyMask | CommandKeyMask, CommandKeyMask},
        {"a required one is added", 0, ControlKeyMask, 0, ControlKeyMask},
        {"a bit of neither kind is dropped", ~quint64(0), ~quint64(0), ~quint64(0), Everything},
    };
    for (const Row& row : rows) {
        RecorderSettings settings;
        settings.allowedFlags = row.allowed;
        settings.requiredFlags = row.required;
        EXPECT_EQ(settings.filtered(row.given), row.filtered) << row.name;
    }
}

TEST(RecorderSettings, keyIsValid_withAModifier_orWhereAKeyAloneIsAllowed)
{
    RecorderSettings settings;
    EXPECT_FALSE(settings.valid(0));
    EXPECT_FALSE(settings.valid(0x10000)) << "the lock is no modifier";
    EXPECT_TRUE(settings.valid(FunctionKeyMask));
    settings.allowsKeyOnly = true;
    EXPECT_TRUE(settings.valid(0));
}

TEST(RecorderSettings, keyedArchive_givesThemBack)
{
    const RecorderSettings settings = filledSettings();
    const RecorderSettings decoded = archivedAndBack(settings, Archive::Form::Keyed);
    EXPECT_EQ(decoded.autosaveName, settings.autosaveName);
    EXPECT_EQ(decoded.style, 1);
    EXPECT_TRUE(decoded.isAnimating);
    EXPECT_EQ(decoded.keyCombo, settings.keyCombo);
    EXPECT_TRUE(decoded.hasKeyChars);
    EXPECT_EQ(decoded.keyChars, settings.keyChars);
    EXPECT_EQ(decoded.keyCharsIgnoringModifiers, settings.keyCharsIgnoringModifiers);
    EXPECT_EQ(decoded.allowedFlags, settings.allowedFlags | FunctionKeyMask);
    EXPECT_EQ(decoded.requiredFlags, settings.requiredFlags);
    EXPECT_TRUE(decoded.allowsKeyOnly);
    EXPECT_TRUE(decoded.escapeKeysRecord);
    EXPECT_FALSE(decoded.globalHotKeys) << "not archived";
}

TEST(RecorderSettings, archiveWithoutKeys_givesTheFirstFiveBack)
{
    const RecorderSettings settings = filledSettings();
    const RecorderSettings decoded = archivedAndBack(settings, Archive::Form::Unkeyed);
    EXPECT_EQ(decoded.autosaveName, settings.autosaveName);
    EXPECT_EQ(decoded.keyCombo, settings.keyCombo);
    EXPECT_EQ(decoded.allowedFlags, settings.allowedFlags | FunctionKeyMask);
    EXPECT_EQ(decoded.requiredFlags, settings.requiredFlags);
    EXPECT_FALSE(decoded.hasKeyChars);
    EXPECT_FALSE(decoded.allowsKeyOnly);
    EXPECT_EQ(decoded.style, 0);
}

TEST(RecorderSettings, dictionary_givesTheCombinationBack_andNothingElse)
{
    const RecorderSettings settings = filledSettings();
    RecorderSettings loaded;
    loaded.setDictionary(settings.dictionary());
    EXPECT_EQ(loaded.keyCombo, settings.keyCombo);
    EXPECT_EQ(loaded.keyChars, settings.keyChars);
    EXPECT_EQ(loaded.keyCharsIgnoringModifiers, settings.keyCharsIgnoringModifiers);
    EXPECT_TRUE(loaded.hasKeyChars);
    EXPECT_TRUE(loaded.autosaveName.isNull());
    EXPECT_EQ(loaded.style, 0);

    loaded.setDictionary({});
    EXPECT_EQ(loaded.keyCombo, (KeyCombo{0, 0})) << "nothing stored";
    EXPECT_FALSE(loaded.hasKeyChars);
    EXPECT_FALSE(loaded.keyChars);
}

TEST(RecorderSettings, dictionaryOfAnEarlierProgram_hasCarbonFlagsOnly)
{
    RecorderSettings loaded;
    loaded.setDictionary({{u"keyCode"_s, 7}, {u"modifiers"_s, 0x1100}});
    EXPECT_EQ(loaded.keyCombo, (KeyCombo{ControlKeyMask | CommandKeyMask, 7}));
}
