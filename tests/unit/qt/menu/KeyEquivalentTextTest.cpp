// SPDX-License-Identifier: MIT
#include "platform/qt/menu/KeyEquivalentText.h"

#include "foundation/Event.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace tarnwick {
namespace {

struct Row
{
    const char* what;
    QString keyEquivalent;
    quint64 mask;
    QString text;
};

class KeyEquivalentText : public ::testing::TestWithParam<Row>
{
};

TEST_P(KeyEquivalentText, isWrittenInTheDesktopsWay)
{
    const Row& row = GetParam();
    EXPECT_EQ(keyEquivalentText(row.keyEquivalent, row.mask).toStdString(), row.text.toStdString())
        << row.what;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, KeyEquivalentText,
    ::testing::Values(
        Row{"nothing", {}, CommandKeyMask, {}}, Row{"Command is Ctrl", u"s"_s, CommandKeyMask, u"Ctrl+S"_s},
        Row{"with Shift", u"s"_s, CommandKeyMask | ShiftKeyMask, u"Ctrl+Shift+S"_s},
        Row{"Option is Alt", u"s"_s, AlternateKeyMask, u"Alt+S"_s},
        Row{"Control is Super", u"s"_s, ControlKeyMask, u"Super+S"_s},
        Row{"all modifiers", u"s"_s, CommandKeyMask | ShiftKeyMask | AlternateKeyMask | ControlKeyMask,
            u"Super+Ctrl+Alt+Shift+S"_s},
        Row{"no modifier", u"s"_s, 0, u"S"_s},
        Row{"other bits do not count", u"s"_s, FunctionKeyMask | 0x10000, u"S"_s},
        Row{"a capital is typed with Shift", u"S"_s, CommandKeyMask, u"Ctrl+Shift+S"_s},
        Row{"and not twice", u"S"_s, CommandKeyMask | ShiftKeyMask, u"Ctrl+Shift+S"_s},
        Row{"a digit", u"0"_s, CommandKeyMask, u"Ctrl+0"_s}, Row{"plus", u"+"_s, CommandKeyMask, u"Ctrl++"_s},
        Row{"a letter that has no single capital", u"ß"_s, CommandKeyMask, u"Ctrl+ß"_s},
        Row{"a letter with a dot", u"ä"_s, CommandKeyMask, u"Ctrl+Ä"_s},
        Row{"Return", u"\r"_s, CommandKeyMask, u"Ctrl+Return"_s}, Row{"Enter", u"\u0003"_s, 0, u"Enter"_s},
        Row{"Delete", u"\u0008"_s, CommandKeyMask, u"Ctrl+Backspace"_s},
        Row{"Delete, as keys send it", u"\u007f"_s, 0, u"Backspace"_s}, Row{"Tab", u"\t"_s, 0, u"Tab"_s},
        Row{"Escape", u"\u001b"_s, 0, u"Esc"_s}, Row{"Space", u" "_s, CommandKeyMask, u"Ctrl+Space"_s},
        Row{"up", u"\uF700"_s, 0, u"Up"_s}, Row{"down", u"\uF701"_s, 0, u"Down"_s},
        Row{"left", u"\uF702"_s, AlternateKeyMask, u"Alt+Left"_s}, Row{"right", u"\uF703"_s, 0, u"Right"_s},
        Row{"F1", u"\uF704"_s, 0, u"F1"_s}, Row{"F12", u"\uF70F"_s, 0, u"F12"_s},
        Row{"F13", u"\uF710"_s, 0, u"F13"_s}, Row{"F35", u"\uF726"_s, 0, u"F35"_s},
        Row{"Insert", u"\uF727"_s, 0, u"Ins"_s}, Row{"Forward Delete", u"\uF728"_s, 0, u"Del"_s},
        Row{"Home", u"\uF729"_s, 0, u"Home"_s}, Row{"End", u"\uF72B"_s, 0, u"End"_s},
        Row{"Page Up", u"\uF72C"_s, 0, u"PgUp"_s},
        Row{"Page Down", u"\uF72D"_s, CommandKeyMask, u"Ctrl+PgDown"_s},
        Row{"Eject", u"\u23CF"_s, 0, u"Eject"_s},
        Row{"a key that this desktop has not", u"\uF743"_s, CommandKeyMask, {}},
        Row{"a control character without a key", u"\u0001"_s, CommandKeyMask, {}},
        Row{"more than one character stays as it is", u"f5"_s, CommandKeyMask, u"Ctrl+f5"_s}));

} // namespace
} // namespace tarnwick
