// SPDX-License-Identifier: MIT
#include "shortcut/SRRecorderCell.h"

#include "foundation/UserDefaults.h"
#include "foundation/UserDefaultsController.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "shortcut/Archive.h"
#include "shortcut/SRSharedImageProvider.h"
#include "tests/fakes/FakeRecorderCellView.h"
#include "tests/unit/shortcut/ShortcutFixture.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr quint64 Command = CommandKeyMask;
constexpr quint64 Option = AlternateKeyMask;
constexpr quint64 Control = ControlKeyMask;
constexpr quint64 Shift = ShiftKeyMask;
constexpr quint64 Function = FunctionKeyMask;
constexpr quint64 CapsLock = 0x10000;
constexpr quint64 Everything = 0x9E0000;
constexpr double Tick = 0.0334;

Event key(quint16 code, quint64 flags, const QString& characters)
{
    Event event;
    event.type = Event::Type::KeyDown;
    event.keyCode = code;
    event.modifierFlags = flags;
    event.characters = characters;
    event.charactersIgnoringModifiers = characters;
    return event;
}

// Keys as the desktop sends them: a letter is itself under every modifier but Shift, keys that type nothing
// have characters from U+F700 on, and the function-key bit is set for function and arrow keys only.
Event letterA(quint64 flags)
{
    return key(0, flags, flags & Shift ? u"A"_s : u"a"_s);
}
Event f5(quint64 flags = 0)
{
    return key(96, flags | Function, QString(QChar(0xF708)));
}
Event leftArrow(quint64 flags = 0)
{
    return key(123, flags | Function, QString(QChar(0xF702)));
}
Event space(quint64 flags = 0)
{
    return key(49, flags, u" "_s);
}
Event escape(quint64 flags = 0)
{
    return key(53, flags, u"\u001B"_s);
}
Event backspace(quint64 flags = 0)
{
    return key(51, flags, u"\u007F"_s);
}
Event forwardDelete(quint64 flags = 0)
{
    return key(117, flags, QString(QChar(0xF728)));
}

Event flagsEvent(quint64 flags)
{
    Event event;
    event.type = Event::Type::FlagsChanged;
    event.modifierFlags = flags;
    return event;
}

class Listener final : public SRRecorderCellDelegate
{
public:
    Journal* journal = nullptr;
    bool takes = false;
    QList<KeyCombo> combos;
    QList<std::pair<qint64, quint64>> asked;

    void shortcutRecorderCellKeyComboDidChange(SRRecorderCell& /*cell*/, const KeyCombo& keyCombo) override
    {
        combos.append(keyCombo);
        note(journal, u"changed"_s);
    }
    bool shortcutRecorderCellIsKeyCodeAndFlagsTakenReason(SRRecorderCell& /*cell*/, qint64 keyCode,
                                                          quint64 cocoaFlags,
                                                          std::optional<QString>& reason) override
    {
        asked.append({keyCode, cocoaFlags});
        note(journal, u"asked"_s);
        reason = u"it is mine"_s;
        return takes;
    }
};

class SRRecorderCellTest : public ShortcutFixture
{
protected:
    SRRecorderCellTest()
    {
        cell.setControlView(&view);
        cell.setDelegate(&listener);
        listener.journal = &journal;
        symbolicHotKeys.journal = &journal;
        alerts.journal = &journal;
    }

    void startRecording(SRRecorderCell& started)
    {
        started.performKeyEquivalent(space());
        while (!started.isRecording())
            clock.advance(Tick);
        journal.clear();
    }
    void startRecording() { startRecording(cell); }

    /// A left click: pressed at one point of the view, dragged over others, released at the last one.
    bool click(const QList<QPointF>& points)
    {
        const auto mouse = [this](Event::Type type, const QPointF& point) {
            Event event;
            event.type = type;
            event.locationInWindow = view.inWindow(point);
            return event;
        };
        for (qsizetype i = 1; i + 1 < points.size(); ++i)
            events.events.append(mouse(Event::Type::LeftMouseDragged, points[i]));
        events.events.append(mouse(Event::Type::LeftMouseUp, points.last()));
        events.arrives = [this](const Event& event) { application.event = event; };
        return cell.trackMouseInRectOfViewUntilMouseUp(mouse(Event::Type::LeftMouseDown, points.first()),
                                                       view.frame, view, true);
    }

    QVariantMap saved(const QString& name = u"Test"_s)
    {
        return UserDefaults::standardUserDefaults()
            .dictionaryForKey(u"ShortcutRecorder "_s + name)
            .value_or(QVariantMap());
    }

    static constexpr QPointF InRemoveButton{190, 11};
    static constexpr QPointF InSnapback{190, 12};
    static constexpr QPointF InMainArea{50, 11};

    Journal journal;
    FakeRecorderCellView view;
    Listener listener;
    SRRecorderCell cell;
};

} // namespace

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

// Key presses: every way through

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
    symbolicHotKeys.symbolicHotKeys = {{true, 0, 0x100}};
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

// Recording and its transitions

TEST_F(SRRecorderCellTest, startOfRecording_showsTheRequiredModifiers_andRedraws)
{
    cell.setRequiredFlags(Command | CapsLock);
    cell.flagsChanged(flagsEvent(Option));
    view.displays = 0;
    view.focusRings = 0;
    cell.performKeyEquivalent(space());
    EXPECT_TRUE(cell.isRecording());
    EXPECT_EQ(cell.recordingFlags(), Command);
    EXPECT_GE(view.displays, 1);
    EXPECT_EQ(view.focusRings, 1);
    cell.performKeyEquivalent(escape());
    EXPECT_FALSE(cell.isRecording());
    EXPECT_EQ(view.focusRings, 2);
}

TEST_F(SRRecorderCellTest, animation_isEffectiveInStyleOneOnly)
{
    struct Row
    {
        bool animates;
        qint32 style;
        bool effective;
    };
    for (const Row& row :
         {Row{false, 0, false}, Row{false, 1, false}, Row{true, 0, false}, Row{true, 1, true}}) {
        SRRecorderCell each;
        each.setAnimates(row.animates);
        each.setStyle(row.style);
        each.performKeyEquivalent(space());
        EXPECT_EQ(each.isAnimatingNow(), row.effective) << row.animates << row.style;
        EXPECT_EQ(each.isRecording(), !row.effective) << row.animates << row.style;
    }
}

TEST_F(SRRecorderCellTest, transition_takesElevenTicksOfAThirtiethOfASecond)
{
    cell.setAnimates(true);
    cell.setStyle(1);
    cell.performKeyEquivalent(space());
    EXPECT_TRUE(cell.isAnimatingNow());
    EXPECT_TRUE(cell.isAnimatingTowardsRecording());
    EXPECT_EQ(cell.transitionProgress(), 0);
    clock.advance(0.0333);
    EXPECT_EQ(cell.transitionProgress(), 0) << "not before a thirtieth";
    clock.advance(0.0001);
    for (int tick = 1; tick <= 10; ++tick) {
        EXPECT_DOUBLE_EQ(cell.transitionProgress(), tick * double(2.0F / 21.0F)) << tick;
        EXPECT_EQ(clock.pending(), 1);
        EXPECT_FALSE(cell.isRecording());
        view.displays = 0;
        clock.advance(double(1.0F / 30.0F));
        EXPECT_GE(view.displays, 1);
    }
    EXPECT_TRUE(cell.isRecording()) << "with the eleventh tick";
    EXPECT_FALSE(cell.isAnimatingNow());
    EXPECT_EQ(cell.transitionProgress(), 0);
    EXPECT_EQ(clock.pending(), 0);
}

TEST_F(SRRecorderCellTest, endTransition_recordsAtOnce_andStaysRecordingToItsEnd)
{
    cell.setAnimates(true);
    cell.setStyle(1);
    startRecording();
    cell.performKeyEquivalent(letterA(Command));
    EXPECT_EQ(cell.keyCombo(), (KeyCombo{Command, 0}));
    EXPECT_TRUE(cell.comboJustChanged());
    EXPECT_TRUE(cell.isAnimatingNow());
    EXPECT_FALSE(cell.isAnimatingTowardsRecording());
    EXPECT_TRUE(cell.isRecording());
    clock.advance(11 * Tick);
    EXPECT_FALSE(cell.isRecording());
    EXPECT_FALSE(cell.comboJustChanged());
    EXPECT_FALSE(cell.isAnimatingNow());
}

TEST_F(SRRecorderCellTest, newTransition_takesThePlaceOfTheRunningOne)
{
    cell.setAnimates(true);
    cell.setStyle(1);
    cell.performKeyEquivalent(space());
    clock.advance(5 * Tick);
    cell.performKeyEquivalent(space());
    EXPECT_EQ(cell.transitionProgress(), 0);
    EXPECT_EQ(clock.pending(), 1);
    clock.advance(10 * Tick);
    EXPECT_FALSE(cell.isRecording());
    clock.advance(Tick);
    EXPECT_TRUE(cell.isRecording());
}

TEST_F(SRRecorderCellTest, destroyedCell_ticksNoMore)
{
    {
        SRRecorderCell gone;
        gone.setAnimates(true);
        gone.setStyle(1);
        gone.performKeyEquivalent(space());
        EXPECT_EQ(clock.pending(), 1);
    }
    EXPECT_EQ(clock.pending(), 0);
    clock.advance(1);
}

// The system's shortcuts

TEST_F(SRRecorderCellTest, everyStartPushesOnce_everyEndPopsOnce)
{
    cell.setCanCaptureGlobalHotKeys(true);
    for (int round = 1; round <= 3; ++round) {
        startRecording();
        EXPECT_EQ(symbolicHotKeys.pushes, round);
        EXPECT_EQ(symbolicHotKeys.pops, round - 1);
        cell.performKeyEquivalent(round == 2 ? letterA(Command) : escape());
        EXPECT_EQ(symbolicHotKeys.pushes, round);
        EXPECT_EQ(symbolicHotKeys.pops, round);
    }
    EXPECT_EQ(symbolicHotKeys.pushOptions, (QList<quint32>{1, 1, 1}));
}

TEST_F(SRRecorderCellTest, withoutTheSetting_nothingIsPushed)
{
    startRecording();
    cell.performKeyEquivalent(escape());
    EXPECT_EQ(symbolicHotKeys.pushes, 0);
    EXPECT_FALSE(journal.contains(u"pop"_s));
}

TEST_F(SRRecorderCellTest, noWayOutLeavesThemSwitchedOff)
{
    const QList<std::pair<const char*, std::function<void(SRRecorderCell&)>>> ways{
        {"a recorded key", [](SRRecorderCell& each) { each.performKeyEquivalent(letterA(Command)); }},
        {"cancelling", [](SRRecorderCell& each) { each.performKeyEquivalent(escape()); }},
        {"a beep", [](SRRecorderCell& each) { each.performKeyEquivalent(key(54, Command, {})); }},
        {"loss of the focus", [](SRRecorderCell& each) { EXPECT_TRUE(each.resignFirstResponder()); }},
        {"the setting going off meanwhile",
         [](SRRecorderCell& each) {
             each.setCanCaptureGlobalHotKeys(false);
             each.performKeyEquivalent(escape());
         }},
        {"starting again while recording",
         [](SRRecorderCell& each) {
             each.performKeyEquivalent(space());
             EXPECT_TRUE(each.isRecording());
             each.performKeyEquivalent(escape());
         }},
        {"destruction", [](SRRecorderCell&) {}},
    };
    view.firstResponder = true;
    for (const auto& [name, way] : ways) {
        SCOPED_TRACE(name);
        {
            SRRecorderCell each;
            each.setControlView(&view);
            each.setCanCaptureGlobalHotKeys(true);
            startRecording(each);
            EXPECT_EQ(symbolicHotKeys.pushed.size(), 1);
            way(each);
        }
        EXPECT_TRUE(symbolicHotKeys.pushed.isEmpty());
        EXPECT_EQ(symbolicHotKeys.pushes, symbolicHotKeys.pops);
    }
}

TEST_F(SRRecorderCellTest, refusedPush_isNotPopped)
{
    symbolicHotKeys.refusesPush = true;
    cell.setCanCaptureGlobalHotKeys(true);
    startRecording();
    cell.performKeyEquivalent(escape());
    EXPECT_FALSE(journal.contains(u"pop"_s));
}

// Buttons and the mouse

TEST_F(SRRecorderCellTest, buttonRectangles_standAtTheRightEdge)
{
    const QRectF frame(0, 0, 200, 22);
    EXPECT_EQ(cell.removeButtonRectForFrame(frame), QRectF()) << "nothing to remove";
    cell.setKeyCombo({Command, 6});
    EXPECT_EQ(cell.removeButtonRectForFrame(frame), QRectF(182, 4, 14, 14));
    EXPECT_EQ(cell.snapbackRectForFrame(frame), QRectF(184, 5, 14, 14));
    const QRectF elsewhere(10, 20, 100, 22);
    EXPECT_EQ(cell.removeButtonRectForFrame(elsewhere), QRectF(92, 14, 14, 14)) << "half of the frame's y";
    EXPECT_EQ(cell.snapbackRectForFrame(elsewhere), QRectF(94, 15, 14, 14));
    cell.setEnabled(false);
    EXPECT_EQ(cell.removeButtonRectForFrame(frame), QRectF());
}

TEST_F(SRRecorderCellTest, clicks_byStateAndPlace)
{
    struct Row
    {
        const char* name;
        KeyCombo before;
        bool recording;
        bool enabled;
        QList<QPointF> points;
        KeyCombo after;
        bool recordingAfter;
        bool firstResponder;
    };
    const KeyCombo set{Command, 6};
    const KeyCombo none{0, -1};
    const QList<Row> rows{
        {"idle, main area: recording starts", set, false, true, {InMainArea, InMainArea}, set, true, true},
        {"idle, remove button: cleared",
         set,
         false,
         true,
         {InRemoveButton, InRemoveButton},
         none,
         false,
         true},
        {"idle, dragged from the button to the main area: recording starts",
         set,
         false,
         true,
         {InRemoveButton, InMainArea, InMainArea},
         set,
         true,
         true},
        {"idle, dragged from the main area to the button: cleared",
         set,
         false,
         true,
         {InMainArea, InRemoveButton, InRemoveButton},
         none,
         false,
         true},
        {"idle, released outside: nothing",
         set,
         false,
         true,
         {InMainArea, {50, 40}, {50, 40}},
         set,
         false,
         true},
        {"idle, beside the button: nothing", set, false, true, {{181, 11}, {181.9, 11}}, set, true, true},
        {"idle, between main area and button's end",
         set,
         false,
         true,
         {{197, 11}, {197, 11}},
         set,
         false,
         true},
        {"empty, where the button would be: recording starts",
         none,
         false,
         true,
         {InRemoveButton, InRemoveButton},
         none,
         true,
         true},
        {"disabled: nothing", set, false, false, {InMainArea, InMainArea}, set, false, false},
        {"disabled, on the button: nothing",
         set,
         false,
         false,
         {InRemoveButton, InRemoveButton},
         set,
         false,
         false},
        {"recording, snap back: ends with the old one",
         set,
         true,
         true,
         {InSnapback, InSnapback},
         set,
         false,
         true},
        {"recording, main area: goes on", set, true, true, {InMainArea, InMainArea}, set, true, true},
        {"recording, dragged off snap back: goes on",
         set,
         true,
         true,
         {InSnapback, InMainArea, InMainArea},
         set,
         true,
         true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        cell.setEnabled(true);
        if (cell.isRecording())
            cell.performKeyEquivalent(escape());
        cell.setKeyCombo(row.before);
        if (row.recording)
            startRecording();
        cell.setEnabled(row.enabled);
        view.firstResponder = false;
        listener.combos.clear();
        EXPECT_TRUE(click(row.points));
        EXPECT_EQ(cell.keyCombo(), row.after);
        EXPECT_EQ(cell.isRecording(), row.recordingAfter);
        EXPECT_EQ(view.firstResponder, row.firstResponder);
        EXPECT_FALSE(cell.mouseDown());
        EXPECT_EQ(listener.combos.size(), row.before == row.after ? 0 : 1);
    }
}

TEST_F(SRRecorderCellTest, mainArea_endsBeforeTheButton)
{
    cell.setKeyCombo({Command, 6});
    click({{182 - 0.5, 11}, {182 - 0.5, 11}});
    EXPECT_TRUE(cell.isRecording()) << "200 - (4 + 14) is 182";
    cell.performKeyEquivalent(escape());
    cell.setKeyCombo({Command, 6});
    click({{182, 3}, {182, 3}});
    EXPECT_FALSE(cell.isRecording());
    EXPECT_EQ(cell.keyCombo().code, 6) << "below the button, beside the main area";
}

TEST_F(SRRecorderCellTest, removeButton_clears_tells_saves)
{
    cell.setAutosaveName(u"Test"_s);
    cell.setKeyCombo({Command, 6});
    listener.combos.clear();
    click({InRemoveButton, InRemoveButton});
    EXPECT_EQ(listener.combos, (QList<KeyCombo>{{0, -1}}));
    EXPECT_EQ(saved()[u"keyCode"_s].toInt(), -1);
    EXPECT_TRUE(cell.isEmpty());
}

TEST_F(SRRecorderCellTest, tracking_followsTheMouseTickByTick)
{
    cell.setKeyCombo({Command, 6});
    QList<std::pair<bool, bool>> seen; // mouse down, inside
    const auto mouse = [this](Event::Type type, const QPointF& point) {
        Event event;
        event.type = type;
        event.locationInWindow = view.inWindow(point);
        return event;
    };
    events.events = {mouse(Event::Type::LeftMouseDragged, InMainArea),
                     mouse(Event::Type::LeftMouseDragged, InRemoveButton),
                     mouse(Event::Type::LeftMouseUp, InMainArea)};
    events.arrives = [&](const Event&) {
        seen.append({cell.mouseDown(), cell.mouseInsideTrackingArea()});
        EXPECT_GE(view.displays, 1) << "redrawn after each event";
        view.displays = 0;
    };
    cell.trackMouseInRectOfViewUntilMouseUp(mouse(Event::Type::LeftMouseDown, InRemoveButton), view.frame,
                                            view, true);
    EXPECT_EQ(seen, (QList<std::pair<bool, bool>>{{true, false}, {true, false}, {true, true}}));
    EXPECT_EQ(events.masks, (QList<quint64>{0x44, 0x44, 0x44}));
    EXPECT_FALSE(cell.mouseDown());
    EXPECT_FALSE(cell.mouseInsideTrackingArea());
}

TEST_F(SRRecorderCellTest, mouseDownOutsideTheButton_redrawsNothing)
{
    cell.setKeyCombo({Command, 6});
    view.displays = 0;
    int displaysAtFirstWait = -1;
    events.arrives = [&](const Event&) { displaysAtFirstWait = view.displays; };
    Event up;
    up.type = Event::Type::LeftMouseUp;
    up.locationInWindow = view.inWindow({50, 40});
    events.events = {up};
    Event down;
    down.type = Event::Type::LeftMouseDown;
    down.locationInWindow = view.inWindow(InMainArea);
    cell.trackMouseInRectOfViewUntilMouseUp(down, view.frame, view, true);
    EXPECT_EQ(displaysAtFirstWait, 0);
    EXPECT_GE(view.displays, 1);
}

TEST_F(SRRecorderCellTest, windowGoingAwayWhileTracking_endsIt_andTouchesNothingMore)
{
    cell.setKeyCombo({Command, 6});
    Event down;
    down.type = Event::Type::LeftMouseDown;
    down.locationInWindow = view.inWindow(InRemoveButton);
    EXPECT_TRUE(cell.trackMouseInRectOfViewUntilMouseUp(down, view.frame, view, true));
    EXPECT_TRUE(cell.mouseDown());
    EXPECT_EQ(cell.keyCombo().code, 6);
    EXPECT_FALSE(view.firstResponder);
}

TEST_F(SRRecorderCellTest, anyOtherEvent_endsTrackingLikeARelease)
{
    cell.setKeyCombo({Command, 6});
    Event moved;
    moved.type = Event::Type::MouseMoved;
    moved.locationInWindow = view.inWindow(InRemoveButton);
    EXPECT_TRUE(cell.trackMouseInRectOfViewUntilMouseUp(moved, view.frame, view, true));
    EXPECT_EQ(cell.keyCombo().code, -1);
    EXPECT_TRUE(events.masks.isEmpty());
}

TEST_F(SRRecorderCellTest, clickIntoTheMainArea_withAnimation_endsInTheTransition)
{
    cell.setAnimates(true);
    cell.setStyle(1);
    click({InMainArea, InMainArea});
    EXPECT_TRUE(cell.isAnimatingNow());
    EXPECT_FALSE(cell.isRecording());
    EXPECT_TRUE(view.firstResponder);
}

TEST_F(SRRecorderCellTest, trackingRectangles_followTheState)
{
    cell.setKeyCombo({Command, 6});
    application.event = Event();
    application.event->locationInWindow = view.inWindow(InRemoveButton);
    cell.resetTrackingRects();
    ASSERT_EQ(view.tracked.size(), 1);
    EXPECT_EQ(view.tracked.first().rect, QRectF(182, 4, 14, 14));
    EXPECT_TRUE(view.tracked.first().assumedInside);
    EXPECT_TRUE(cell.mouseInsideTrackingArea());

    cell.resetTrackingRects();
    EXPECT_EQ(view.tracked.size(), 1) << "the new one takes the place of the old one";

    startRecording();
    application.event->locationInWindow = view.inWindow(InMainArea);
    cell.resetTrackingRects();
    EXPECT_EQ(view.tracked.size(), 2) << "that of the other button stays";
    EXPECT_EQ(view.tracked.last().rect, QRectF(184, 5, 14, 14));
    EXPECT_FALSE(view.tracked.last().assumedInside);
    EXPECT_FALSE(cell.mouseInsideTrackingArea());

    cell.setEnabled(false);
    cell.resetTrackingRects();
    EXPECT_TRUE(view.tracked.isEmpty());
}

TEST_F(SRRecorderCellTest, trackingRectangle_ofAnEmptyCell_isTheZeroRectangle)
{
    application.event = Event();
    application.event->locationInWindow = view.origin;
    cell.resetTrackingRects();
    ASSERT_EQ(view.tracked.size(), 1);
    EXPECT_EQ(view.tracked.first().rect, QRectF());
    EXPECT_FALSE(cell.mouseInsideTrackingArea());
}

TEST_F(SRRecorderCellTest, mouseEnteredAndExited_countInAKeyWindow_orWhereTheFirstClickCounts)
{
    struct Row
    {
        bool key;
        bool firstMouse;
        bool counts;
    };
    for (const Row& row : {Row{true, false, true}, Row{false, true, true}, Row{false, false, false}}) {
        view.keyWindow = true;
        cell.mouseExited({});
        view.keyWindow = row.key;
        view.takesFirstMouse = row.firstMouse;
        view.displays = 0;
        cell.mouseEntered({});
        EXPECT_EQ(cell.mouseInsideTrackingArea(), row.counts);
        EXPECT_EQ(view.displays, row.counts ? 1 : 0);
        view.keyWindow = true;
        cell.mouseEntered({});
        view.keyWindow = row.key;
        cell.mouseExited({});
        EXPECT_EQ(cell.mouseInsideTrackingArea(), !row.counts);
    }
}

// The first responder

TEST_F(SRRecorderCellTest, becomingFirstResponder_tracksAndRedraws)
{
    view.displays = 0;
    EXPECT_TRUE(cell.becomeFirstResponder());
    EXPECT_EQ(view.tracked.size(), 1);
    EXPECT_GE(view.displays, 1);
}

TEST_F(SRRecorderCellTest, resigningFirstResponder_endsRecording)
{
    view.displays = 0;
    EXPECT_TRUE(cell.resignFirstResponder()) << "while idle as well";
    EXPECT_GE(view.displays, 1);
    startRecording();
    EXPECT_TRUE(cell.resignFirstResponder());
    EXPECT_FALSE(cell.isRecording());
    EXPECT_EQ(cell.keyCombo().code, -1);

    cell.setAnimates(true);
    cell.setStyle(1);
    startRecording();
    EXPECT_TRUE(cell.resignFirstResponder());
    EXPECT_TRUE(cell.isAnimatingNow());
    EXPECT_FALSE(cell.isAnimatingTowardsRecording());
}

TEST_F(SRRecorderCellTest, resigningOnTheWayToRecording_turnsBack)
{
    cell.setAnimates(true);
    cell.setStyle(1);
    cell.setCanCaptureGlobalHotKeys(true);
    cell.performKeyEquivalent(space());
    clock.advance(3 * Tick);
    EXPECT_TRUE(cell.resignFirstResponder());
    clock.advance(1);
    EXPECT_FALSE(cell.isRecording());
    EXPECT_FALSE(cell.isAnimatingNow());
    EXPECT_EQ(symbolicHotKeys.pushes, 0);
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

// Settings

TEST_F(SRRecorderCellTest, save_writesWhatWasRecorded)
{
    cell.setAutosaveName(u"Test"_s);
    cell.setKeyCombo({Control | Command, 7});
    EXPECT_EQ(saved(),
              (QVariantMap{{u"keyCode"_s, 7}, {u"modifierFlags"_s, 0x140000}, {u"modifiers"_s, 0x1100}}));
    startRecording();
    cell.performKeyEquivalent(f5(Shift));
    const QString f5Character{QChar(0xF708)};
    EXPECT_EQ(saved(), (QVariantMap{{u"keyCode"_s, 96},
                                    {u"modifierFlags"_s, 0x820000},
                                    {u"modifiers"_s, 0x800200},
                                    {u"keyChars"_s, f5Character},
                                    {u"keyCharsIgnoringModifiers"_s, f5Character}}));
    EXPECT_EQ(store.written.last(), u"ShortcutRecorder Test"_s);
}

TEST_F(SRRecorderCellTest, save_withoutAName_writesNothing)
{
    cell.setKeyCombo({Command, 7});
    cell.setAutosaveName(u""_s);
    cell.setKeyCombo({Command, 8});
    EXPECT_TRUE(store.written.isEmpty());
}

namespace {

struct StoredRow
{
    const char* name;
    QVariant stored;
    KeyCombo loaded;
    std::optional<QString> keyChars;
};

} // namespace

TEST_F(SRRecorderCellTest, load_takesWhatIsThere_andIsNeutralAboutTheRest)
{
    const QList<StoredRow> rows{
        {"all of it",
         u"{\"keyCode\":7,\"modifierFlags\":1310720,\"modifiers\":512,\"keyChars\":\"q\","
         "\"keyCharsIgnoringModifiers\":\"Q\"}"_s,
         {0x140000, 7},
         u"q"_s},
        {"without characters", u"{\"keyCode\":7,\"modifierFlags\":1310720}"_s, {0x140000, 7}, u"X"_s},
        {"old flags only", u"{\"keyCode\":7,\"modifiers\":4352}"_s, {0x140000, 7}, u"X"_s},
        {"no flags", u"{\"keyCode\":7}"_s, {0, 7}, u"X"_s},
        {"flags with foreign bits", u"{\"keyCode\":7,\"modifierFlags\":4294967295}"_s, {0x9E0000, 7}, u"X"_s},
        {"a code with too many bits",
         u"{\"keyCode\":65543,\"modifierFlags\":1048576}"_s,
         {Command, 7},
         u"X"_s},
        {"a negative code", u"{\"keyCode\":-1,\"modifierFlags\":0}"_s, {0, -1}, std::nullopt},
        {"an empty dictionary", u"{}"_s, {0, 0}, u"A"_s},
        {"nothing", QVariant(), {0, 0}, u"A"_s},
        {"texts for numbers", u"{\"keyCode\":\"7\",\"modifierFlags\":\"1048576\"}"_s, {0, 0}, u"A"_s},
        {"a number for the characters",
         u"{\"keyCode\":7,\"modifierFlags\":1048576,\"keyChars\":3}"_s,
         {Command, 7},
         u"X"_s},
        {"a text that is no dictionary", u"hello"_s, {0, 0}, u"A"_s},
        {"a list", u"[1,2]"_s, {0, 0}, u"A"_s},
        {"cut off", u"{\"keyCode\":7,\"modif"_s, {0, 0}, u"A"_s},
        {"a number", 17, {0, 0}, u"A"_s},
    };
    SRRecorderCell named;
    named.setAutosaveName(u"Test"_s);
    Archive archive(Archive::Form::Keyed);
    named.encodeWithCoder(archive);
    // The archive allows the function-key bit only; the row is about the stored flags.
    archive.encode(qint64(Everything), u"allowedFlags");
    for (const StoredRow& row : rows) {
        SCOPED_TRACE(row.name);
        store.values.clear();
        if (row.stored.isValid())
            store.values[u"ShortcutRecorder Test"_s] = row.stored;
        SRRecorderCell loaded(archive);
        EXPECT_EQ(loaded.keyCombo(), row.loaded);
        EXPECT_EQ(loaded.keyChars(), row.keyChars);
    }
}

TEST_F(SRRecorderCellTest, load_withNothingStored_countsAsEmpty_unlessAKeyAloneIsAllowed)
{
    cell.setAutosaveName(u"Test"_s);
    for (const bool keyOnly : {false, true}) {
        cell.setAllowsKeyOnlyEscapeKeysRecord(keyOnly, false);
        Archive archive(Archive::Form::Keyed);
        cell.encodeWithCoder(archive);
        const SRRecorderCell loaded(archive);
        EXPECT_EQ(loaded.keyCombo(), (KeyCombo{0, 0}));
        EXPECT_EQ(loaded.isEmpty(), !keyOnly);
    }
}

TEST_F(SRRecorderCellTest, load_filtersByAllowedAndRequiredFlags)
{
    store.values[u"ShortcutRecorder Test"_s] = u"{\"keyCode\":7,\"modifierFlags\":1310720}"_s;
    cell.setAutosaveName(u"Test"_s);
    cell.setAllowedFlags(Command);
    cell.setRequiredFlags(Shift);
    Archive archive(Archive::Form::Keyed);
    cell.encodeWithCoder(archive);
    EXPECT_EQ(SRRecorderCell(archive).keyCombo(), (KeyCombo{Command | Shift, 7}));
}

// Archives

TEST_F(SRRecorderCellTest, keyedArchive_isAMapOfTheseKeys)
{
    cell.setAutosaveName(u"Test"_s);
    cell.setAllowedFlags(Command | Shift);
    cell.setRequiredFlags(Shift);
    cell.setAllowsKeyOnlyEscapeKeysRecord(true, true);
    cell.setAnimates(true);
    cell.setStyle(1);
    cell.setKeyCombo({Command, 6});
    Archive archive(Archive::Form::Keyed);
    cell.encodeWithCoder(archive);
    EXPECT_EQ(QCborValue::fromCbor(archive.data()).toMap(), (QCborMap{{u"autosaveName"_s, u"Test"_s},
                                                                      {u"keyComboCode"_s, 6},
                                                                      {u"keyComboFlags"_s, 0x120000},
                                                                      {u"allowedFlags"_s, 0x120000},
                                                                      {u"requiredFlags"_s, 0x20000},
                                                                      {u"allowsKeyOnly"_s, true},
                                                                      {u"escapeKeysRecord"_s, true},
                                                                      {u"isAnimating"_s, true},
                                                                      {u"style"_s, 1}}));
}

TEST_F(SRRecorderCellTest, unkeyedArchive_isAnArrayInThisOrder)
{
    cell.setAutosaveName(u"Test"_s);
    cell.setAllowedFlags(Command | Shift);
    cell.setRequiredFlags(Shift);
    cell.setKeyCombo({Command, -1});
    Archive archive(Archive::Form::Unkeyed);
    cell.encodeWithCoder(archive);
    EXPECT_EQ(QCborValue::fromCbor(archive.data()).toArray(),
              (QCborArray{u"Test"_s, -1, 0x120000, 0x120000, 0x20000}));
}

TEST_F(SRRecorderCellTest, archives_giveTheCellBack_andAllowTheFunctionKeyBit)
{
    for (const Archive::Form form : {Archive::Form::Keyed, Archive::Form::Unkeyed}) {
        const bool keyed = form == Archive::Form::Keyed;
        SCOPED_TRACE(keyed ? "keyed" : "unkeyed");
        SRRecorderCell before;
        before.setAllowedFlags(Command | Shift);
        before.setRequiredFlags(Shift);
        before.setAllowsKeyOnlyEscapeKeysRecord(true, true);
        before.setAnimates(true);
        before.setStyle(1);
        startRecording(before);
        before.performKeyEquivalent(letterA(Command));
        Archive archive(form);
        before.encodeWithCoder(archive);

        Archive read = Archive::fromData(archive.data());
        const SRRecorderCell after(read);
        EXPECT_EQ(after.keyCombo(), (KeyCombo{Command | Shift, 0}));
        EXPECT_EQ(after.allowedFlags(), Command | Shift | Function);
        EXPECT_EQ(after.requiredFlags(), Shift);
        EXPECT_TRUE(after.autosaveName().isEmpty());
        EXPECT_EQ(after.keyChars(), keyed ? u"a"_s : u"A"_s);
        EXPECT_EQ(after.allowsKeyOnly(), keyed);
        EXPECT_EQ(after.escapeKeysRecord(), keyed);
        EXPECT_EQ(after.animates(), keyed);
        EXPECT_EQ(after.style(), keyed ? 1 : 0);
        EXPECT_FALSE(after.isRecording());
        EXPECT_EQ(after.delegate(), nullptr);
    }
}

TEST_F(SRRecorderCellTest, archivedName_isMissingOrEmpty_asItWas)
{
    for (const Archive::Form form : {Archive::Form::Keyed, Archive::Form::Unkeyed}) {
        for (const QString& name : {QString(), u""_s}) {
            cell.setAutosaveName(name);
            Archive archive(form);
            cell.encodeWithCoder(archive);
            Archive read = Archive::fromData(archive.data());
            EXPECT_EQ(SRRecorderCell(read).autosaveName().isNull(), name.isNull());
        }
    }
}

TEST_F(SRRecorderCellTest, storedCombination_winsOverTheArchivedOne)
{
    cell.setAutosaveName(u"Test"_s);
    cell.setKeyCombo({Command, 6});
    for (const Archive::Form form : {Archive::Form::Keyed, Archive::Form::Unkeyed}) {
        Archive archive(form);
        cell.encodeWithCoder(archive);
        store.values[u"ShortcutRecorder Test"_s] = u"{\"keyCode\":8,\"modifierFlags\":524288}"_s;
        EXPECT_EQ(SRRecorderCell(archive).keyCombo(), (KeyCombo{Option, 8}));
    }
}

TEST_F(SRRecorderCellTest, badArchives_giveNeutralCells)
{
    const QByteArray keyed = QCborValue(QCborMap{{u"autosaveName"_s, 5},
                                                 {u"keyComboCode"_s, u"six"_s},
                                                 {u"keyComboFlags"_s, QCborArray{1}},
                                                 {u"allowedFlags"_s, true},
                                                 {u"requiredFlags"_s, u"all"_s},
                                                 {u"keyChars"_s, 7},
                                                 {u"allowsKeyOnly"_s, u"yes"_s},
                                                 {u"style"_s, 9}})
                                 .toCbor();
    const QList<std::pair<const char*, QByteArray>> rows{
        {"wrong types", keyed},
        {"cut off", keyed.left(keyed.size() / 2)},
        {"empty", {}},
        {"no archive", "\xFF\xFE garbage"},
        {"a number", QCborValue(17).toCbor()},
        {"an empty array", QCborValue(QCborArray()).toCbor()},
        {"an array of wrong types", QCborValue(QCborArray{1, u"x"_s, false, QCborMap()}).toCbor()},
        {"a short array", QCborValue(QCborArray{QCborValue()}).toCbor()},
        {"numbers out of range",
         QCborValue(QCborMap{{u"keyComboCode"_s, 1e300}, {u"keyComboFlags"_s, -1e300}, {u"style"_s, qQNaN()}})
             .toCbor()},
        {"a row of fractions", QCborValue(QCborArray{QCborValue(), 6.5, 1e300}).toCbor()},
    };
    for (const auto& [name, data] : rows) {
        SCOPED_TRACE(name);
        Archive archive = Archive::fromData(data);
        const SRRecorderCell decoded(archive);
        EXPECT_EQ(decoded.keyCombo(), (KeyCombo{0, 0}));
        EXPECT_EQ(decoded.allowedFlags(), Function);
        EXPECT_EQ(decoded.requiredFlags(), 0U);
        EXPECT_TRUE(decoded.autosaveName().isEmpty());
        EXPECT_FALSE(decoded.allowsKeyOnly());
        EXPECT_EQ(decoded.style(), 0);
        EXPECT_TRUE(decoded.isEmpty());
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
