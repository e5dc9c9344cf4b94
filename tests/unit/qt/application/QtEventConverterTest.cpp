// SPDX-License-Identifier: MIT
#include "platform/qt/application/QtEventConverter.h"

#include <QEnterEvent>
#include <QHash>
#include <QKeyEvent>
#include <QMouseEvent>
#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr quint16 ZKey = 6;
constexpr quint32 ZScanCode = 52;
constexpr quint32 UnknownScanCode = 250;

/// A keyboard with one letter key.
QtEventConverter converter()
{
    return QtEventConverter({
        [](const QKeyEvent& event) {
            return event.nativeScanCode() == UnknownScanCode ? std::nullopt : std::optional(ZKey);
        },
        [](quint16 keyCode, bool shift) { return keyCode != ZKey ? QString()
                                                 : shift         ? u"Z"_s
                                                                 : u"z"_s; },
    });
}

Event converted(const QEvent& event)
{
    const auto result = converter().convert(event);
    EXPECT_TRUE(result);
    return result.value_or(Event());
}

Event key(int qtKey, Qt::KeyboardModifiers modifiers, const QString& text,
          QEvent::Type type = QEvent::KeyPress, quint32 scanCode = ZScanCode)
{
    return converted(QKeyEvent(type, qtKey, modifiers, scanCode, 0, 0, text));
}

struct CharacterRow
{
    const char* sentence;
    int key;
    Qt::KeyboardModifiers modifiers;
    QString text; ///< what Qt says that it types
    QString characters;
    QString ignoringModifiers;
    bool functionBit;
};

TEST(QtEventConverter, characters_areTheLetterUnderAnyModifierButShift)
{
    const CharacterRow rows[] = {
        {"a letter alone", Qt::Key_Z, Qt::NoModifier, u"z"_s, u"z"_s, u"z"_s, false},
        {"with Shift", Qt::Key_Z, Qt::ShiftModifier, u"Z"_s, u"Z"_s, u"Z"_s, false},
        {"with Caps Lock on", Qt::Key_Z, Qt::NoModifier, u"Z"_s, u"Z"_s, u"z"_s, false},
        {"with Control", Qt::Key_Z, Qt::ControlModifier, u"\x1a"_s, u"z"_s, u"z"_s, false},
        {"with Alt", Qt::Key_Z, Qt::AltModifier, u"z"_s, u"z"_s, u"z"_s, false},
        {"with Super", Qt::Key_Z, Qt::MetaModifier, u"z"_s, u"z"_s, u"z"_s, false},
        {"with Control and Shift", Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, u"\x1a"_s, u"Z"_s,
         u"Z"_s, false},
        {"with the third level held", Qt::Key_At, Qt::NoModifier, u"@"_s, u"@"_s, u"z"_s, false},
        {"F1", Qt::Key_F1, Qt::NoModifier, {}, u"\uF704"_s, u"\uF704"_s, true},
        {"F12 with Control", Qt::Key_F12, Qt::ControlModifier, {}, u"\uF70F"_s, u"\uF70F"_s, true},
        {"F35", Qt::Key_F35, Qt::NoModifier, {}, u"\uF726"_s, u"\uF726"_s, true},
        {"up", Qt::Key_Up, Qt::NoModifier, {}, u"\uF700"_s, u"\uF700"_s, true},
        {"down", Qt::Key_Down, Qt::NoModifier, {}, u"\uF701"_s, u"\uF701"_s, true},
        {"left", Qt::Key_Left, Qt::NoModifier, {}, u"\uF702"_s, u"\uF702"_s, true},
        {"right", Qt::Key_Right, Qt::NoModifier, {}, u"\uF703"_s, u"\uF703"_s, true},
        {"Home", Qt::Key_Home, Qt::NoModifier, {}, u"\uF729"_s, u"\uF729"_s, true},
        {"End", Qt::Key_End, Qt::NoModifier, {}, u"\uF72B"_s, u"\uF72B"_s, true},
        {"Page Up", Qt::Key_PageUp, Qt::NoModifier, {}, u"\uF72C"_s, u"\uF72C"_s, true},
        {"Page Down", Qt::Key_PageDown, Qt::NoModifier, {}, u"\uF72D"_s, u"\uF72D"_s, true},
        {"Delete has no function bit", Qt::Key_Backspace, Qt::NoModifier, u"\b"_s, u"\x7f"_s, u"\x7f"_s,
         false},
        {"nor has Forward Delete", Qt::Key_Delete, Qt::NoModifier, u"\x7f"_s, u"\uF728"_s, u"\uF728"_s,
         false},
        {"nor has Escape", Qt::Key_Escape, Qt::NoModifier, u"\x1b"_s, u"\x1b"_s, u"\x1b"_s, false},
        {"Return", Qt::Key_Return, Qt::NoModifier, u"\r"_s, u"\r"_s, u"\r"_s, false},
        {"Enter", Qt::Key_Enter, Qt::NoModifier, u"\r"_s, u"\x03"_s, u"\x03"_s, false},
        {"Tab", Qt::Key_Tab, Qt::NoModifier, u"\t"_s, u"\t"_s, u"\t"_s, false},
        {"Tab back", Qt::Key_Backtab, Qt::ShiftModifier, {}, u"\x19"_s, u"\x19"_s, false},
    };
    for (const CharacterRow& row : rows) {
        SCOPED_TRACE(row.sentence);
        const Event event = key(row.key, row.modifiers, row.text);
        EXPECT_EQ(event.type, Event::Type::KeyDown);
        EXPECT_EQ(event.characters, row.characters);
        EXPECT_EQ(event.charactersIgnoringModifiers, row.ignoringModifiers);
        EXPECT_EQ((event.modifierFlags & FunctionKeyMask) != 0, row.functionBit);
    }
}

TEST(QtEventConverter, keyWithoutAKeyCode_isToldSo_andTypesWhatQtSays)
{
    const Event event = key(Qt::Key_Z, Qt::NoModifier, u"ж"_s, QEvent::KeyPress, UnknownScanCode);
    EXPECT_EQ(event.keyCode, QtEventConverter::NoKeyCode);
    EXPECT_EQ(event.characters, u"ж"_s);
    EXPECT_EQ(event.charactersIgnoringModifiers, u"ж"_s);
}

TEST(QtEventConverter, modifiers_areThePhysicalKeys)
{
    const std::pair<Qt::KeyboardModifier, quint64> rows[] = {
        {Qt::ShiftModifier, ShiftKeyMask},
        {Qt::ControlModifier, ControlKeyMask},
        {Qt::AltModifier, AlternateKeyMask},
        {Qt::MetaModifier, CommandKeyMask},
        {Qt::KeypadModifier, 0},
        {Qt::GroupSwitchModifier, 0},
    };
    for (const auto& [modifier, flags] : rows)
        EXPECT_EQ(key(Qt::Key_Z, modifier, u"z"_s).modifierFlags, flags);
}

struct FlagRow
{
    const char* sentence;
    int key;
    QEvent::Type type;
    Qt::KeyboardModifiers before; ///< as Qt reports them with the event
    quint64 flags;
};

TEST(QtEventConverter, modifierKey_changesFlags_toThoseAfterTheEvent)
{
    const FlagRow rows[] = {
        {"Shift goes down", Qt::Key_Shift, QEvent::KeyPress, Qt::NoModifier, ShiftKeyMask},
        {"Shift goes up", Qt::Key_Shift, QEvent::KeyRelease, Qt::ShiftModifier, 0},
        {"Control goes down with Shift held", Qt::Key_Control, QEvent::KeyPress, Qt::ShiftModifier,
         ShiftKeyMask | ControlKeyMask},
        {"Alt goes down", Qt::Key_Alt, QEvent::KeyPress, Qt::NoModifier, AlternateKeyMask},
        {"Super goes down, known by its own name", Qt::Key_Super_L, QEvent::KeyPress, Qt::NoModifier,
         CommandKeyMask},
        {"Super goes up", Qt::Key_Super_L, QEvent::KeyRelease, Qt::MetaModifier, 0},
        {"Meta goes down", Qt::Key_Meta, QEvent::KeyPress, Qt::NoModifier, CommandKeyMask},
        {"Caps Lock leaves the flags", Qt::Key_CapsLock, QEvent::KeyPress, Qt::AltModifier, AlternateKeyMask},
        {"so does the third-level key", Qt::Key_AltGr, QEvent::KeyPress, Qt::NoModifier, 0},
    };
    for (const FlagRow& row : rows) {
        SCOPED_TRACE(row.sentence);
        const Event event = key(row.key, row.before, {}, row.type);
        EXPECT_EQ(event.type, Event::Type::FlagsChanged);
        EXPECT_EQ(event.modifierFlags, row.flags);
        EXPECT_TRUE(event.characters.isEmpty());
    }
}

constexpr quint16 LeftShift = 56;
constexpr quint16 CapsLock = 57;
constexpr quint16 LeftOption = 58;
constexpr quint16 LeftControl = 59;
constexpr quint16 RightOption = 61;

/// A keyboard whose scan codes are virtual key codes, and whose modifier keys are what they are on most; with
/// others held they choose the next layout. The right Option key chooses the third level.
QtEventConverter converterOfModifierKeys()
{
    return QtEventConverter({
        [](const QKeyEvent& event) { return std::optional(quint16(event.nativeScanCode())); },
        [](quint16, bool shift) { return shift ? u"Z"_s : u"z"_s; },
        [](quint16 keyCode) -> quint64 {
            const QHash<quint16, quint64> flags{{54, CommandKeyMask},          {55, CommandKeyMask},
                                                {LeftShift, ShiftKeyMask},     {LeftOption, AlternateKeyMask},
                                                {LeftControl, ControlKeyMask}, {60, ShiftKeyMask},
                                                {62, ControlKeyMask}};
            return flags.value(keyCode);
        },
    });
}

struct Stroke
{
    quint16 keyCode;
    int key;
    QEvent::Type type;
    Qt::KeyboardModifiers before; ///< as Qt reports them with the event
    quint64 flags;                ///< that the event is to have
};

struct StrokesRow
{
    const char* sentence;
    QList<Stroke> strokes;
};

TEST(QtEventConverter, modifierKeys_areThoseOfTheKeyboard_whateverTheLayoutMakesOfThem)
{
    constexpr auto down = QEvent::KeyPress;
    constexpr auto up = QEvent::KeyRelease;
    constexpr quint64 both = ShiftKeyMask | AlternateKeyMask;
    const StrokesRow rows[] = {
        {"Shift under Alt chooses a layout and is Shift all the same, also for the letter that follows",
         {{LeftOption, Qt::Key_Alt, down, Qt::NoModifier, AlternateKeyMask},
          {LeftShift, Qt::Key_unknown, down, Qt::AltModifier, both},
          {ZKey, Qt::Key_Z, down, Qt::AltModifier, both},
          {ZKey, Qt::Key_Z, up, Qt::AltModifier, both},
          {LeftOption, Qt::Key_Alt, up, Qt::AltModifier, ShiftKeyMask},
          {LeftShift, Qt::Key_Shift, up, Qt::NoModifier, 0},
          {ZKey, Qt::Key_Z, down, Qt::NoModifier, 0}}},
        {"Alt under Shift has the name of another modifier",
         {{LeftShift, Qt::Key_Shift, down, Qt::NoModifier, ShiftKeyMask},
          {LeftOption, Qt::Key_Meta, down, Qt::ShiftModifier, both},
          {ZKey, Qt::Key_Z, down, Qt::ShiftModifier | Qt::AltModifier, both},
          {LeftShift, Qt::Key_Shift, up, Qt::ShiftModifier | Qt::AltModifier, AlternateKeyMask},
          {LeftOption, Qt::Key_Alt, up, Qt::AltModifier, 0}}},
        {"Control under Shift chooses a layout",
         {{LeftShift, Qt::Key_Shift, down, Qt::NoModifier, ShiftKeyMask},
          {LeftControl, Qt::Key_unknown, down, Qt::ShiftModifier, ShiftKeyMask | ControlKeyMask},
          {LeftControl, Qt::Key_unknown, up, Qt::ShiftModifier, ShiftKeyMask},
          {LeftShift, Qt::Key_Shift, up, Qt::ShiftModifier, 0}}},
        {"both Shift keys, one of them a layout's",
         {{60, Qt::Key_Shift, down, Qt::NoModifier, ShiftKeyMask},
          {LeftShift, Qt::Key_unknown, down, Qt::ShiftModifier, ShiftKeyMask}}},
        {"a modifier key that the layout has made none of",
         {{RightOption, Qt::Key_unknown, down, Qt::ShiftModifier, ShiftKeyMask},
          {CapsLock, Qt::Key_unknown, down, Qt::NoModifier, 0},
          {CapsLock, Qt::Key_unknown, up, Qt::NoModifier, 0}}},
        {"the third level is none either",
         {{RightOption, Qt::Key_AltGr, down, Qt::NoModifier, 0},
          {RightOption, Qt::Key_AltGr, up, Qt::GroupSwitchModifier, 0}}},
    };
    for (const StrokesRow& row : rows) {
        SCOPED_TRACE(row.sentence);
        QtEventConverter converter = converterOfModifierKeys();
        for (const Stroke& stroke : row.strokes) {
            const QKeyEvent key(stroke.type, stroke.key, stroke.before, stroke.keyCode, 0, 0);
            const auto event = converter.convert(key);
            ASSERT_TRUE(event);
            EXPECT_EQ(event->type == Event::Type::FlagsChanged, stroke.keyCode != ZKey);
            EXPECT_EQ(event->modifierFlags, stroke.flags);
        }
    }
}

TEST(QtEventConverter, everyModifierKey_isOne_andItsNeighboursAreNot)
{
    for (quint16 keyCode = 50; keyCode < 70; ++keyCode) {
        const QKeyEvent key(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, keyCode, 0, 0);
        const auto event = converterOfModifierKeys().convert(key);
        EXPECT_EQ(event && event->type == Event::Type::FlagsChanged, keyCode >= 54 && keyCode <= 62)
            << keyCode;
    }
}

TEST(QtEventConverter, modifierKeys_thatGoUpElsewhere_areForgotten)
{
    QtEventConverter converter = converterOfModifierKeys();
    const QKeyEvent shift(QEvent::KeyPress, Qt::Key_unknown, Qt::AltModifier, LeftShift, 0, 0);
    const QMouseEvent click(QEvent::MouseButtonPress, QPointF(), QPointF(), Qt::LeftButton, Qt::LeftButton,
                            Qt::NoModifier);
    ASSERT_TRUE(converter.convert(shift));
    EXPECT_EQ(converter.convert(click).value_or(Event()).modifierFlags, ShiftKeyMask);
    EXPECT_FALSE(converter.convert(QApplicationStateChangeEvent(Qt::ApplicationInactive)));
    EXPECT_EQ(converter.convert(click).value_or(Event()).modifierFlags, 0U);
}

TEST(QtEventConverter, keyRelease_isKeyUp_andAShortcutOffer_isKeyDown)
{
    EXPECT_EQ(key(Qt::Key_Z, Qt::NoModifier, u"z"_s, QEvent::KeyRelease).type, Event::Type::KeyUp);
    const Event offered = key(Qt::Key_Z, Qt::NoModifier, u"z"_s, QEvent::ShortcutOverride);
    EXPECT_EQ(offered.type, Event::Type::KeyDown);
    EXPECT_EQ(offered.keyCode, ZKey);
}

TEST(QtEventConverter, mouse_tellsButtonAndPlaceInTheWindow)
{
    const QPointF local(3, 4);
    const QPointF scene(30, 40);
    const auto mouse = [&](QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held) {
        return converted(QMouseEvent(type, local, scene, QPointF(300, 400), button, held, Qt::AltModifier));
    };
    struct
    {
        QEvent::Type type;
        Qt::MouseButton button;
        Qt::MouseButtons held;
        Event::Type expected;
    } const rows[] = {
        {QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, Event::Type::LeftMouseDown},
        {QEvent::MouseButtonDblClick, Qt::LeftButton, Qt::LeftButton, Event::Type::LeftMouseDown},
        {QEvent::MouseButtonPress, Qt::RightButton, Qt::RightButton, Event::Type::RightMouseDown},
        {QEvent::MouseButtonPress, Qt::MiddleButton, Qt::MiddleButton, Event::Type::OtherMouseDown},
        {QEvent::MouseButtonPress, Qt::BackButton, Qt::BackButton, Event::Type::OtherMouseDown},
        {QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, Event::Type::LeftMouseUp},
        {QEvent::MouseButtonRelease, Qt::RightButton, Qt::NoButton, Event::Type::RightMouseUp},
        {QEvent::MouseButtonRelease, Qt::MiddleButton, Qt::NoButton, Event::Type::OtherMouseUp},
        {QEvent::MouseMove, Qt::NoButton, Qt::NoButton, Event::Type::MouseMoved},
        {QEvent::MouseMove, Qt::NoButton, Qt::LeftButton, Event::Type::LeftMouseDragged},
        {QEvent::MouseMove, Qt::NoButton, Qt::RightButton, Event::Type::RightMouseDragged},
        {QEvent::MouseMove, Qt::NoButton, Qt::MiddleButton, Event::Type::OtherMouseDragged},
    };
    for (const auto& row : rows) {
        const Event event = mouse(row.type, row.button, row.held);
        EXPECT_EQ(event.type, row.expected);
        EXPECT_EQ(event.locationInWindow, scene);
        EXPECT_EQ(event.modifierFlags, AlternateKeyMask);
    }
    EXPECT_EQ(converted(QEnterEvent(local, scene, scene)).type, Event::Type::MouseEntered);
    EXPECT_EQ(converted(QEvent(QEvent::Leave)).type, Event::Type::MouseExited);
}

TEST(QtEventConverter, otherEvents_areNone)
{
    EXPECT_FALSE(converter().convert(QEvent(QEvent::Paint)));
    EXPECT_FALSE(converter().convert(QEvent(QEvent::FocusIn)));
}

} // namespace
