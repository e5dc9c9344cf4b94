// SPDX-License-Identifier: MIT
// Key presses in a recorder's cell: every way through.
#include "foundation/UserDefaultsController.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "tests/unit/shortcut/RecorderCellFixture.h"

using namespace tarnwick;
using namespace tarnwick::recorder;
using namespace Qt::StringLiterals;

namespace {

struct KeySettings
{
    bool keyOnly = false;
    bool escapeKeys = false;
    quint64 required = 0;
    quint64 allowed = Everything;
    bool enabled = true;
    bool firstResponder = true;
    bool taken = false;
    bool systemUnreadable = false;
};

struct KeyRowOfTable
{
    const char* name;
    bool recording;
    Event event;
    KeySettings settings;
    // Expected:
    bool consumed;
    bool recordingAfter;
    KeyCombo combo;
    Journal calls;
};

const KeyCombo Old{Option, 6};
const Journal Recorded{u"asked"_s, u"hot keys"_s, u"changed"_s, u"saved"_s};

QList<KeyRowOfTable> keyRows()
{
    const KeySettings plain;
    KeySettings keyOnly;
    keyOnly.keyOnly = true;
    KeySettings escapeKeys = keyOnly;
    escapeKeys.escapeKeys = true;
    KeySettings escapeKeysWithoutKeyOnly;
    escapeKeysWithoutKeyOnly.escapeKeys = true;
    KeySettings needsCommand;
    needsCommand.required = Command;
    KeySettings onlyCommand;
    onlyCommand.allowed = Command;
    KeySettings keyOnlyNeedsCommand = keyOnly;
    keyOnlyNeedsCommand.required = Command;
    KeySettings taken;
    taken.taken = true;
    KeySettings unreadable;
    unreadable.systemUnreadable = true;
    KeySettings disabled;
    disabled.enabled = false;
    KeySettings elsewhere;
    elsewhere.firstResponder = false;
    const Journal none;

    Event spaceAndMore = space();
    spaceAndMore.characters = u" x"_s;
    Event noCharacters = key(54, Command, u""_s);
    Event noBareCharacters = letterA(Command);
    noBareCharacters.charactersIgnoringModifiers = u""_s;

    return {
        // Not recording
        {"idle: Space starts", false, space(), plain, true, true, Old, none},
        {"idle: Space with modifiers starts too", false, space(Command), plain, true, true, Old, none},
        {"idle: Space starts even elsewhere", false, space(), elsewhere, true, true, Old, none},
        {"idle: a letter does nothing", false, letterA(0), plain, false, false, Old, none},
        {"idle: a combination does nothing", false, letterA(Command), plain, false, false, Old, none},
        {"idle: Escape does nothing", false, escape(), plain, false, false, Old, none},
        {"idle: no characters do nothing", false, noCharacters, plain, false, false, Old, none},
        {"idle: characters that begin with a space start, and go on", false, spaceAndMore, plain, false, true,
         Old, none},
        {"the same elsewhere does nothing", false, spaceAndMore, elsewhere, false, false, Old, none},
        {"the same disabled does nothing", false, spaceAndMore, disabled, false, false, Old, none},

        // Recording
        {"Control-A is recorded", true, letterA(Control), plain, true, false, {Control, 0}, Recorded},
        {"Shift-A is recorded", true, letterA(Shift), plain, true, false, {Shift, 0}, Recorded},
        {"Control-Super-X is recorded",
         true,
         key(7, Control | Command, u"x"_s),
         plain,
         true,
         false,
         {Control | Command, 7},
         Recorded},
        {"Caps Lock is dropped",
         true,
         letterA(Command | CapsLock),
         plain,
         true,
         false,
         {Command, 0},
         Recorded},
        {"Command-Space is recorded", true, space(Command), plain, true, false, {Command, 49}, Recorded},
        {"a letter alone goes on", true, letterA(0), plain, false, true, Old, none},
        {"Caps Lock alone is no modifier", true, letterA(CapsLock), plain, false, true, Old, none},
        {"Space alone goes on, and recording with it", true, space(), plain, false, true, Old, none},
        {"a letter alone is recorded where that is allowed",
         true,
         letterA(0),
         keyOnly,
         true,
         false,
         {0, 0},
         Recorded},
        {"Space alone as well", true, space(), keyOnly, true, false, {0, 49}, Recorded},
        {"F5 alone is recorded: its bit is a modifier",
         true,
         f5(),
         plain,
         true,
         false,
         {Function, 96},
         Recorded},
        {"F5 alone under a required Command",
         true,
         f5(),
         needsCommand,
         true,
         false,
         {Command | Function, 96},
         Recorded},
        {"F5 where its bit is not allowed goes on", true, f5(), onlyCommand, false, true, Old, none},
        {"F5 there, with a required Command, is Command-F5",
         true,
         f5(),
         [] {
             KeySettings settings;
             settings.allowed = Command;
             settings.required = Command;
             return settings;
         }(),
         true,
         false,
         {Command, 96},
         Recorded},
        {"an arrow is recorded", true, leftArrow(), plain, true, false, {Function, 123}, Recorded},
        {"Command-arrow is recorded",
         true,
         leftArrow(Command),
         plain,
         true,
         false,
         {Command | Function, 123},
         Recorded},
        {"a letter alone is recorded under a required Command",
         true,
         letterA(0),
         needsCommand,
         true,
         false,
         {Command, 0},
         Recorded},
        {"a modifier that is not allowed is dropped",
         true,
         letterA(Command | Shift),
         onlyCommand,
         true,
         false,
         {Command, 0},
         Recorded},
        {"only a modifier that is not allowed goes on", true, letterA(Option), onlyCommand, false, true, Old,
         none},
        {"a modifier key that types nothing beeps and ends",
         true,
         noCharacters,
         plain,
         true,
         false,
         Old,
         {u"beep"_s}},
        {"a key without bare characters as well",
         true,
         noBareCharacters,
         plain,
         true,
         false,
         Old,
         {u"beep"_s}},

        // Cancelling
        {"Escape alone cancels", true, escape(), plain, true, false, Old, none},
        {"Delete alone cancels", true, backspace(), plain, true, false, Old, none},
        {"Forward Delete alone cancels", true, forwardDelete(), plain, true, false, Old, none},
        {"Escape cancels under a required Command, which nobody holds", true, escape(), needsCommand, true,
         false, Old, none},
        {"Command-Escape is recorded", true, escape(Command), plain, true, false, {Command, 53}, Recorded},
        {"Shift-Delete is recorded", true, backspace(Shift), plain, true, false, {Shift, 51}, Recorded},
        {"Forward Delete with its bit is recorded",
         true,
         forwardDelete(Function),
         plain,
         true,
         false,
         {Function, 117},
         Recorded},
        {"Escape with a modifier that is not allowed is recorded alone",
         true,
         escape(Option),
         onlyCommand,
         true,
         false,
         {0, 53},
         Recorded},
        {"Escape with Caps Lock cancels", true, escape(CapsLock), plain, true, false, Old, none},
        {"a key alone allowed: Escape still cancels", true, escape(), keyOnly, true, false, Old, none},
        {"Delete as well", true, backspace(), keyOnly, true, false, Old, none},
        {"Forward Delete as well", true, forwardDelete(), keyOnly, true, false, Old, none},
        {"Forward Delete with its bit as well", true, forwardDelete(Function), keyOnly, true, false, Old,
         none},
        {"Escape with a modifier that is not allowed as well", true, escape(Option),
         [] {
             KeySettings settings;
             settings.keyOnly = true;
             settings.allowed = Command;
             return settings;
         }(),
         true, false, Old, none},
        {"Command-Escape is recorded there",
         true,
         escape(Command),
         keyOnly,
         true,
         false,
         {Command, 53},
         Recorded},
        {"under a required Command Escape is Command-Escape there",
         true,
         escape(),
         keyOnlyNeedsCommand,
         true,
         false,
         {Command, 53},
         Recorded},
        {"escape keys record: Escape", true, escape(), escapeKeys, true, false, {0, 53}, Recorded},
        {"escape keys record: Delete", true, backspace(), escapeKeys, true, false, {0, 51}, Recorded},
        {"escape keys record: Forward Delete",
         true,
         forwardDelete(),
         escapeKeys,
         true,
         false,
         {0, 117},
         Recorded},
        {"they do not where a key alone is not allowed", true, escape(), escapeKeysWithoutKeyOnly, true,
         false, Old, none},

        // Taken
        {"a taken combination is refused, and recording goes on",
         true,
         letterA(Command),
         taken,
         true,
         true,
         Old,
         {u"asked"_s, u"alert"_s}},
        {"with an unreadable system list as well",
         true,
         letterA(Command),
         unreadable,
         true,
         true,
         Old,
         {u"asked"_s, u"hot keys"_s, u"alert"_s}},
        {"cancelling asks nobody", true, escape(), taken, true, false, Old, none},
    };
}

} // namespace

TEST_F(SRRecorderCellTest, performKeyEquivalent_byStateEventAndSettings)
{
    const auto observer = UserDefaultsController::sharedUserDefaultsController().addObserverForKeyPath(
        u"values.ShortcutRecorder Test"_s, [this](const QString&) { journal.append(u"saved"_s); });
    const auto rows = keyRows();
    for (const KeyRowOfTable& row : rows) {
        SCOPED_TRACE(row.name);
        SRRecorderCell each;
        each.setControlView(&view);
        each.setAutosaveName(u"Test"_s);
        each.setKeyCombo(Old);
        each.setDelegate(&listener);
        if (row.recording)
            startRecording(each);
        each.setAllowsKeyOnlyEscapeKeysRecord(row.settings.keyOnly, row.settings.escapeKeys);
        if (row.recording) { // the old combination is not refiltered then
            each.setAllowedFlags(row.settings.allowed);
            each.setRequiredFlags(row.settings.required);
        }
        each.setEnabled(row.settings.enabled);
        view.firstResponder = row.settings.firstResponder;
        listener.takes = row.settings.taken;
        symbolicHotKeys.unreadable = row.settings.systemUnreadable;
        application.beeps = 0;
        view.displays = 0;
        journal.clear();

        const quint64 filtered = (row.event.modifierFlags & row.settings.allowed) | row.settings.required;
        listener.asked.clear();
        EXPECT_EQ(each.performKeyEquivalent(row.event), row.consumed);

        if (application.beeps > 0)
            journal.append(u"beep"_s);
        EXPECT_EQ(journal, row.calls);
        EXPECT_EQ(each.keyCombo(), row.combo);
        EXPECT_EQ(each.isRecording(), row.recordingAfter);
        if (!listener.asked.isEmpty()) {
            EXPECT_EQ(listener.asked[0],
                      (std::pair<qint64, quint64>(row.event.keyCode, filtered & Everything)));
        }
        if (row.calls == Recorded) {
            EXPECT_EQ(each.keyChars(), row.event.characters);
            EXPECT_EQ(each.keyCharsIgnoringModifiers(), row.event.charactersIgnoringModifiers);
        }
        if (row.recording && !row.recordingAfter) {
            EXPECT_EQ(each.recordingFlags(), 0U);
            EXPECT_GT(view.displays, 0);
            EXPECT_FALSE(each.comboJustChanged()) << "recording has ended";
        }
    }
}

TEST_F(SRRecorderCellTest, bareCharacters_areComparedInUpperCase_butKeptAsTyped)
{
    startRecording();
    cell.performKeyEquivalent(letterA(Command));
    EXPECT_EQ(cell.keyCharsIgnoringModifiers(), u"a"_s);
}

TEST_F(SRRecorderCellTest, takenCombination_showsACriticalAlert_thenLooksAtTheModifiersThatAreHeld)
{
    listener.takes = true;
    startRecording();
    application.event = letterA(Command);
    alerts.whileShown = [this] {
        EXPECT_TRUE(cell.isRecording());
        application.event = flagsEvent(Option);
    };
    EXPECT_TRUE(cell.performKeyEquivalent(letterA(Command)));
    ASSERT_EQ(alerts.shown.size(), 1);
    EXPECT_EQ(alerts.shown[0].style, Alert::Style::Critical);
    EXPECT_EQ(alerts.shown[0].messageText, u"The key combination \u2318A can't be used!"_s);
    EXPECT_EQ(alerts.shown[0].informativeText,
              u"The key combination \"Command + A\" can't be used because it is mine."_s);
    EXPECT_EQ(alerts.shown[0].buttonTitles, QStringList{u"OK"_s});
    EXPECT_EQ(cell.recordingFlags(), Option);

    listener.takes = false;
    EXPECT_TRUE(cell.performKeyEquivalent(letterA(Command | Shift))) << "and another one can be tried";
    EXPECT_EQ(cell.keyCombo(), (KeyCombo{Command | Shift, 0}));
}

TEST_F(SRRecorderCellTest, takenByTheMenu_orByTheSystem_isRefusedWithItsText)
{
    symbolicHotKeys.hotKeys = {{true, 0, 0x100}};
    startRecording();
    cell.performKeyEquivalent(letterA(Command));
    ASSERT_EQ(alerts.shown.size(), 1);
    EXPECT_TRUE(alerts.shown[0].informativeText.contains(u"system-wide keyboard shortcut"_s));

    application.menuBar = Menu::create({});
    application.menuBar->addItem(MenuItem::create(u"Show %@ %%"_s, {}, u"b"_s));
    cell.performKeyEquivalent(key(11, Command, u"b"_s));
    ASSERT_EQ(alerts.shown.size(), 2);
    EXPECT_TRUE(alerts.shown[1].informativeText.endsWith(u"by the menu item \"Show %@ %\"."_s))
        << alerts.shown[1].informativeText.toStdString();
    EXPECT_TRUE(cell.isRecording());
    EXPECT_EQ(symbolicHotKeys.candidates, (QList<std::pair<qint64, quint32>>{{0, 0x100}, {11, 0x100}}));
}

TEST_F(SRRecorderCellTest, withoutADelegate_nothingIsReserved)
{
    cell.setDelegate(nullptr);
    startRecording();
    EXPECT_TRUE(cell.performKeyEquivalent(letterA(Command)));
    EXPECT_EQ(cell.keyCombo(), (KeyCombo{Command, 0}));
}

TEST_F(SRRecorderCellTest, flagsChanged_countsWhileRecordingOnly)
{
    cell.setAllowedFlags(Command | Option);
    view.displays = 0;
    cell.flagsChanged(flagsEvent(Command));
    EXPECT_EQ(cell.recordingFlags(), 0U);
    EXPECT_EQ(view.displays, 0);
    startRecording();
    view.displays = 0;
    cell.flagsChanged(flagsEvent(Command | Shift | CapsLock));
    EXPECT_EQ(cell.recordingFlags(), Command);
    EXPECT_EQ(view.displays, 1);
}
