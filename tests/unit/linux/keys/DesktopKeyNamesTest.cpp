// SPDX-License-Identifier: MIT
#include "platform/linux/keys/DesktopKeyNames.h"

#include "foundation/Event.h"
#include "platform/qt/menu/KeyEquivalentText.h"

#include <gtest/gtest.h>

#include <map>

using namespace Qt::StringLiterals;

namespace tarnwick {
namespace {

TEST(DesktopKeyNames, modifiers_areInTheOrderOfMenus)
{
    const DesktopKeyNames names;
    EXPECT_EQ(names.modifiers(0), QString());
    EXPECT_EQ(names.modifiers(FunctionKeyMask), QString());
    EXPECT_EQ(names.modifiers(AlternateKeyMask), u"Alt+"_s);
    EXPECT_EQ(names.modifiers(CommandKeyMask), u"Super+"_s);
    EXPECT_EQ(names.modifiers(CommandKeyMask | AlternateKeyMask | ControlKeyMask | ShiftKeyMask),
              u"Super+Ctrl+Alt+Shift+"_s);
    // The pop-up writes the same keys alike, with other bits: there Command is the key Ctrl.
    EXPECT_EQ(names.modifiers(CommandKeyMask | ControlKeyMask | ShiftKeyMask) + u'Z',
              keyEquivalentText(u"z"_s, ControlKeyMask | CommandKeyMask | ShiftKeyMask));
}

TEST(DesktopKeyNames, keys_haveWordsInsteadOfGlyphs)
{
    const DesktopKeyNames names;
    const std::map<qint64, QString> expected{
        {36, u"Return"_s},  {48, u"Tab"_s},   {49, u"Space"_s},   {51, u"Backspace"_s}, {53, u"Esc"_s},
        {71, u"NumLock"_s}, {76, u"Enter"_s}, {114, u"Ins"_s},    {115, u"Home"_s},     {116, u"PgUp"_s},
        {117, u"Del"_s},    {119, u"End"_s},  {121, u"PgDown"_s}, {123, u"Left"_s},     {124, u"Right"_s},
        {125, u"Down"_s},   {126, u"Up"_s},
    };
    for (qint64 code = -1; code < 128; ++code) {
        const auto row = expected.find(code);
        EXPECT_EQ(names.key(code), row == expected.end() ? std::nullopt : std::optional(row->second)) << code;
    }
}

} // namespace
} // namespace tarnwick
