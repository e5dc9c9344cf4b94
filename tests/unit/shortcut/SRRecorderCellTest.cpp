// SPDX-License-Identifier: MIT
#include "shortcut/SRRecorderCell.h"

#include "shortcut/SRSharedImageProvider.h"
#include "tests/fakes/FakeKeyNames.h"
#include "tests/unit/shortcut/RecorderCellFixture.h"

using namespace tarnwick;
using namespace tarnwick::recorder;
using namespace Qt::StringLiterals;

// Beginnings and settings

TEST_F(SRRecorderCellTest, newCell_isEmptyAndIdle_andAllowsEveryModifier)
{
    const SRRecorderCell fresh;
    EXPECT_EQ(fresh.keyCombo(), (KeyCombo{0, -1}));
    EXPECT_EQ(fresh.allowedFlags(), Everything);
    EXPECT_EQ(fresh.requiredFlags(), 0U);
    EXPECT_EQ(fresh.recordingFlags(), 0U);
    EXPECT_EQ(fresh.style(), 0);
    EXPECT_FALSE(fresh.animates());
    EXPECT_FALSE(fresh.allowsKeyOnly());
    EXPECT_FALSE(fresh.escapeKeysRecord());
    EXPECT_FALSE(fresh.canCaptureGlobalHotKeys());
    EXPECT_TRUE(fresh.autosaveName().isNull());
    EXPECT_EQ(fresh.delegate(), nullptr);
    EXPECT_TRUE(fresh.isEmpty());
    EXPECT_FALSE(fresh.isRecording());
    EXPECT_FALSE(fresh.isAnimatingNow());
    EXPECT_TRUE(store.written.isEmpty());
}

TEST_F(SRRecorderCellTest, style_isZeroOrOne_andOnlyOneAnimates)
{
    const QList<std::pair<qint32, qint32>> rows{{0, 0}, {1, 1}, {2, 0}, {-1, 0}, {0x10001, 0}};
    for (const auto& [given, stored] : rows) {
        cell.setStyle(given);
        EXPECT_EQ(cell.style(), stored) << given;
        EXPECT_EQ(SRRecorderCell::styleSupportsAnimation(given), given == 1) << given;
    }
}

TEST_F(SRRecorderCellTest, setKeyCombo_filters_tells_saves_redraws)
{
    cell.setAutosaveName(u"Test"_s);
    cell.setAllowedFlags(Command | Option);
    view.displays = 0;
    cell.setKeyCombo({Command | Shift | CapsLock, 6});
    EXPECT_EQ(cell.keyCombo(), (KeyCombo{Command, 6}));
    EXPECT_EQ(listener.combos, (QList<KeyCombo>{{Command, 6}}));
    EXPECT_EQ(saved()[u"keyCode"_s].toInt(), 6);
    EXPECT_GE(view.displays, 1);
    cell.setKeyCombo({Command, 6});
    EXPECT_EQ(listener.combos.size(), 2) << "an equal combination is told as well";
}

TEST_F(SRRecorderCellTest, setAllowsKeyOnly_setsBoth_andDoesNotRedraw)
{
    view.displays = 0;
    cell.setAllowsKeyOnlyEscapeKeysRecord(true, true);
    EXPECT_TRUE(cell.allowsKeyOnly());
    EXPECT_TRUE(cell.escapeKeysRecord());
    cell.setAllowsKeyOnlyEscapeKeysRecord(true, false);
    EXPECT_FALSE(cell.escapeKeysRecord());
    EXPECT_EQ(view.displays, 0);
}

TEST_F(SRRecorderCellTest, setAllowedOrRequiredFlags_whileIdle_refilterTheCombination)
{
    struct Row
    {
        const char* name;
        KeyCombo before;
        quint64 allowed;
        quint64 required;
        KeyCombo after;
        int told;
    };
    const QList<Row> rows{
        {"a forbidden modifier goes", {Command | Shift, 6}, Command, 0, {Command, 6}, 1},
        {"a required modifier comes", {Command, 6}, Everything, Shift, {Command | Shift, 6}, 1},
        {"nothing changes", {Command, 6}, Command, Command, {Command, 6}, 0},
        {"an empty combination is not told", {Command, -1}, Option, 0, {0, -1}, 0},
        {"required bits outside the five do nothing", {Command, 6}, Everything, CapsLock, {Command, 6}, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        cell.setAllowedFlags(Everything);
        cell.setRequiredFlags(0);
        cell.setKeyCombo(row.before);
        listener.combos.clear();
        view.displays = 0;
        cell.setAllowedFlags(row.allowed);
        cell.setRequiredFlags(row.required);
        EXPECT_EQ(cell.allowedFlags(), row.allowed);
        EXPECT_EQ(cell.requiredFlags(), row.required);
        EXPECT_EQ(cell.keyCombo(), row.after);
        EXPECT_EQ(listener.combos.size(), row.told);
        EXPECT_EQ(view.displays, 2) << "once for each setting";
    }
}

TEST_F(SRRecorderCellTest, setAllowedOrRequiredFlags_whileRecording_refilterTheHeldModifiers)
{
    cell.setKeyCombo({Command | Shift, 6});
    startRecording();
    application.event = flagsEvent(Command | Option);
    cell.setAllowedFlags(Option);
    EXPECT_EQ(cell.recordingFlags(), Option);
    cell.setRequiredFlags(Shift);
    EXPECT_EQ(cell.recordingFlags(), Option | Shift);
    EXPECT_EQ(cell.keyCombo(), (KeyCombo{Command | Shift, 6})) << "the combination waits";
    application.event.reset();
    cell.setAllowedFlags(Everything);
    EXPECT_EQ(cell.recordingFlags(), Shift) << "without a current event nothing is held";
}

TEST_F(SRRecorderCellTest, autosaveName_isKept_andReadsNothing)
{
    store.values[u"ShortcutRecorder Test"_s] = u"{\"keyCode\":6,\"modifierFlags\":1048576}"_s;
    cell.setAutosaveName(u"Test"_s);
    EXPECT_EQ(cell.autosaveName(), u"Test"_s);
    EXPECT_EQ(cell.keyCombo().code, -1);
}

// What the combination reads as

TEST_F(SRRecorderCellTest, empty_isWithoutModifiersOrWithoutAName)
{
    struct Row
    {
        const char* name;
        KeyCombo combo;
        bool keyOnly;
        std::optional<QString> text;
    };
    const QList<Row> rows{
        {"a combination", {Control | Option | Shift | Command, 6}, false, u"\u2303\u2325\u21E7\u2318Z"_s},
        {"no key", {Command, -1}, false, std::nullopt},
        {"a key without a name", {Command, 54}, false, std::nullopt},
        {"a key that no keyboard has", {Command, 4000}, false, std::nullopt},
        {"no modifier", {0, 6}, false, std::nullopt},
        {"no modifier where that is allowed", {0, 6}, true, u"Z"_s},
        {"the function-key bit is a modifier", {Function, 96}, false, u"F5"_s},
        {"nothing where a key alone is allowed", {0, -1}, true, std::nullopt},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        cell.setAllowsKeyOnlyEscapeKeysRecord(row.keyOnly, false);
        cell.setKeyCombo(row.combo);
        EXPECT_EQ(cell.isEmpty(), !row.text);
        EXPECT_EQ(cell.keyComboString(), row.text);
        EXPECT_EQ(cell.displayedText(), row.text.value_or(u"Click to record shortcut"_s));
    }
}

TEST_F(SRRecorderCellTest, whatIsSeen_isInTheDesktopsWords_whatIsToldIsNot)
{
    FakeKeyNames names;
    const SharedPorts shared(names);
    cell.setKeyCombo({Control | Option, 121});
    EXPECT_EQ(cell.displayedText(), u"Strg+Alt+Bild ab"_s);
    EXPECT_EQ(cell.keyComboString(), u"\u2303\u2325\u21DF"_s);
    startRecording();
    cell.flagsChanged(flagsEvent(Control | Shift));
    EXPECT_EQ(cell.displayedText(), u"Strg+Umschalt+"_s);
}

TEST_F(SRRecorderCellTest, characters_areThoseOfTheKeyPress_orWhatTheKeyWouldType)
{
    cell.setKeyCombo({Shift, 18});
    EXPECT_EQ(cell.keyChars(), u"1"_s);
    EXPECT_EQ(cell.keyCharsIgnoringModifiers(), u"!"_s);
    startRecording();
    Event event = key(18, Command, u"one"_s);
    event.charactersIgnoringModifiers = u"eins"_s;
    cell.performKeyEquivalent(event);
    EXPECT_EQ(cell.keyChars(), u"one"_s);
    EXPECT_EQ(cell.keyCharsIgnoringModifiers(), u"eins"_s);
    cell.setKeyCombo({Command, 18});
    EXPECT_EQ(cell.keyChars(), u"1"_s) << "a combination that is set has no key press";
    cell.setKeyCombo({Command, -1});
    EXPECT_FALSE(cell.keyChars());
    EXPECT_FALSE(cell.keyCharsIgnoringModifiers());
}

// Texts by state

TEST_F(SRRecorderCellTest, displayedText_whileRecording)
{
    struct Row
    {
        const char* name;
        bool keyOnly;
        quint64 held;
        bool overSnapback;
        QString text;
    };
    const QList<Row> rows{
        {"nothing held", false, 0, false, u"Type shortcut"_s},
        {"over snap back", false, 0, true, u"Use old shortcut"_s},
        {"modifiers held", false, Shift | Command, false, u"\u21E7\u2318"_s},
        {"modifiers held over snap back", false, Control | Option, true, u"\u2303\u2325"_s},
        {"only the function-key bit", false, Function, false, u"Type shortcut"_s},
        {"the same over snap back", false, Function, true, u"Type shortcut"_s},
        {"a key alone allowed, nothing held", true, 0, false, u"Type shortcut"_s},
        {"the same over snap back", true, 0, true, u"Type shortcut"_s},
    };
    cell.setKeyCombo({Command, 6});
    startRecording();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        cell.setAllowsKeyOnlyEscapeKeysRecord(row.keyOnly, false);
        cell.flagsChanged(flagsEvent(row.held));
        if (row.overSnapback)
            cell.mouseEntered({});
        else
            cell.mouseExited({});
        EXPECT_EQ(cell.displayedText(), row.text);
    }
}

// Copies

TEST_F(SRRecorderCellTest, copy_takesTheStateAlong_butHoldsNothing)
{
    cell.setAutosaveName(u"Test"_s);
    cell.setAllowedFlags(Command | Option | Function);
    cell.setRequiredFlags(Option);
    cell.setAllowsKeyOnlyEscapeKeysRecord(true, true);
    cell.setAnimates(true);
    cell.setStyle(1);
    cell.setCanCaptureGlobalHotKeys(true);
    startRecording();
    cell.performKeyEquivalent(letterA(Command));
    clock.advance(1);
    startRecording();
    cell.flagsChanged(flagsEvent(Command));
    cell.mouseEntered({});

    auto copy = cell.copy();
    EXPECT_EQ(copy->autosaveName(), u"Test"_s);
    EXPECT_EQ(copy->keyCombo(), (KeyCombo{Command | Option, 0}));
    EXPECT_EQ(copy->keyChars(), u"a"_s);
    EXPECT_EQ(copy->allowedFlags(), cell.allowedFlags());
    EXPECT_EQ(copy->requiredFlags(), Option);
    EXPECT_EQ(copy->recordingFlags(), Command | Option);
    EXPECT_TRUE(copy->isRecording());
    EXPECT_TRUE(copy->mouseInsideTrackingArea());
    EXPECT_TRUE(copy->allowsKeyOnly());
    EXPECT_TRUE(copy->escapeKeysRecord());
    EXPECT_TRUE(copy->animates());
    EXPECT_EQ(copy->style(), 1);
    EXPECT_EQ(copy->delegate(), &listener);
    EXPECT_FALSE(copy->isAnimatingNow());

    copy.reset();
    EXPECT_EQ(symbolicHotKeys.pushed.size(), 1) << "what is switched off is the original's to switch on";
}

TEST_F(SRRecorderCellTest, copy_validatesForItself)
{
    startRecording();
    const auto copy = cell.copy();
    copy->setDelegate(nullptr);
    listener.takes = true;
    EXPECT_TRUE(copy->performKeyEquivalent(letterA(Command)));
    EXPECT_EQ(copy->keyCombo(), (KeyCombo{Command, 0}));
    EXPECT_TRUE(listener.asked.isEmpty());
}

// Images

TEST_F(SRRecorderCellTest, images_areMadeOnce_andMeasureFourteenPoints)
{
    for (const auto& name : {u"SRRemoveShortcut"_s, u"SRRemoveShortcutRollover"_s,
                             u"SRRemoveShortcutPressed"_s, u"SRSnapback"_s}) {
        const auto image = SRSharedImageProvider::supportingImageWithName(name);
        ASSERT_TRUE(image) << name.toStdString();
        EXPECT_EQ(image->size(), QSizeF(14, 14));
        EXPECT_EQ(SRSharedImageProvider::supportingImageWithName(name), image);
    }
    EXPECT_FALSE(SRSharedImageProvider::supportingImageWithName(u"SRNothing"_s));
}
