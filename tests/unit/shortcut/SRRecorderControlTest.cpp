// SPDX-License-Identifier: MIT
#include "shortcut/SRRecorderControl.h"

#include "shortcut/Archive.h"
#include "shortcut/SRKeyCodeTransformer.h"
#include "shortcut/SRRecorderControlDelegate.h"
#include "shortcut/TrackingRects.h"
#include "tests/unit/shortcut/ShortcutFixture.h"

#include <QAccessible>
#include <QLineEdit>
#include <QPainter>
#include <QTest>
#include <QVBoxLayout>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr quint64 Command = CommandKeyMask;
constexpr quint64 Option = AlternateKeyMask;
constexpr quint64 Shift = ShiftKeyMask;

Event keyEvent(Event::Type type, quint16 code, quint64 flags, const QString& characters)
{
    Event event;
    event.type = type;
    event.keyCode = code;
    event.modifierFlags = flags;
    event.characters = characters;
    event.charactersIgnoringModifiers = characters;
    return event;
}

Event letterX(quint64 flags)
{
    return keyEvent(Event::Type::KeyDown, 7, flags, u"x"_s);
}

const Event SpaceKey = keyEvent(Event::Type::KeyDown, 49, 0, u" "_s);
const Event EscapeKey = keyEvent(Event::Type::KeyDown, 53, 0, u"\u001B"_s);

class Listener final : public SRRecorderControlDelegate
{
public:
    bool takes = false;
    QList<std::pair<const SRRecorderControl*, KeyCombo>> changes;
    QList<std::pair<qint64, quint64>> asked;

    void shortcutRecorderKeyComboDidChange(SRRecorderControl& recorder, const KeyCombo& keyCombo) override
    {
        changes.append({&recorder, keyCombo});
    }
    bool shortcutRecorderIsKeyCodeAndFlagsTakenReason(SRRecorderControl& /*recorder*/, qint64 keyCode,
                                                      quint64 cocoaFlags,
                                                      std::optional<QString>& reason) override
    {
        asked.append({keyCode, cocoaFlags});
        reason = u"it is reserved"_s;
        return takes;
    }
};

class Model final : public KeyValueObject
{
public:
    QList<std::pair<QString, QVariant>> set;
    void setValueForKeyPath(const QVariant& value, const QString& keyPath) override
    {
        set.append({keyPath, value});
    }
};

class Doubling final : public ValueTransformer
{
public:
    explicit Doubling(bool allowsReverse) : _allowsReverse(allowsReverse) {}
    [[nodiscard]] bool classAllowsReverseTransformation() const override { return _allowsReverse; }
    [[nodiscard]] QVariant transformedValue(const QVariant& value) const override { return value; }
    [[nodiscard]] QVariant reverseTransformedValue(const QVariant& value) const override
    {
        return QVariantList{value, value};
    }

private:
    bool _allowsReverse;
};

/// What is logged while it lives.
class Log
{
public:
    Log()
    {
        _lines().clear();
        _previous = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext&, const QString& line) { _lines().append(line); });
    }
    ~Log() { qInstallMessageHandler(_previous); }
    Q_DISABLE_COPY_MOVE(Log)
    [[nodiscard]] QStringList lines() const { return _lines(); }

private:
    static QStringList& _lines()
    {
        static QStringList lines;
        return lines;
    }
    QtMessageHandler _previous;
};

/// A window with a recorder between two fields.
class SRRecorderControlTest : public ShortcutFixture
{
protected:
    SRRecorderControlTest()
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&before);
        layout->addWidget(&control);
        layout->addWidget(&after);
        control.setDelegate(&listener);
        window.resize(300, 120);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        control.setFocus();
    }

    /// The key reaches the widget with the focus, and is the application's current event meanwhile.
    void press(const Event& event, Qt::Key key)
    {
        application.event = event;
        QTest::keyClick(QApplication::focusWidget(), key);
    }
    void pointAt(const QPoint& point)
    {
        application.event = mouse(Event::Type::MouseMoved, point);
        QMouseEvent move(QEvent::MouseMove, point, control.mapToGlobal(point), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QApplication::sendEvent(&control, &move);
    }
    Event mouse(Event::Type type, const QPoint& point)
    {
        Event event;
        event.type = type;
        event.locationInWindow = control.mapTo(&window, point);
        return event;
    }
    void click(const QPoint& point)
    {
        events.events = {mouse(Event::Type::LeftMouseUp, point)};
        application.event = mouse(Event::Type::LeftMouseDown, point);
        QTest::mousePress(&control, Qt::LeftButton, Qt::NoModifier, point);
    }

    QWidget window;
    QLineEdit before;
    SRRecorderControl control;
    QLineEdit after;
    Listener listener;
};

} // namespace

// Keys

TEST_F(SRRecorderControlTest, keysWithTheFocus_recordACombination)
{
    press(SpaceKey, Qt::Key_Space);
    EXPECT_TRUE(control.cell().isRecording());
    press(letterX(Command | ControlKeyMask), Qt::Key_X);
    EXPECT_FALSE(control.cell().isRecording());
    EXPECT_EQ(control.keyCombo(), (KeyCombo{0x140000, 7}));
    ASSERT_EQ(listener.changes.size(), 1);
    EXPECT_EQ(listener.changes[0].first, &control);
    EXPECT_EQ(listener.changes[0].second, (KeyCombo{0x140000, 7}));
    EXPECT_EQ(control.keyComboString(), u"\u2303\u2318X"_s);
    EXPECT_EQ(control.keyChars(), u"x"_s);
    EXPECT_EQ(control.keyCharsIgnoringModifiers(), u"x"_s);
}

TEST_F(SRRecorderControlTest, modifiersHeldAndReleased_areShown)
{
    press(SpaceKey, Qt::Key_Space);
    application.event = keyEvent(Event::Type::FlagsChanged, 55, Command, {});
    QTest::keyPress(&control, Qt::Key_Meta);
    EXPECT_EQ(control.cell().recordingFlags(), Command);
    EXPECT_TRUE(control.cell().isRecording());
    application.event = keyEvent(Event::Type::FlagsChanged, 55, 0, {});
    QTest::keyRelease(&control, Qt::Key_Meta);
    EXPECT_EQ(control.cell().recordingFlags(), 0U);
}

TEST_F(SRRecorderControlTest, whileRecording_shortcutsOfTheWindowAndTabAreOffered)
{
    QKeyEvent override(QEvent::ShortcutOverride, Qt::Key_X, Qt::AltModifier);
    override.ignore();
    QApplication::sendEvent(&control, &override);
    EXPECT_FALSE(override.isAccepted()) << "idle";
    press(SpaceKey, Qt::Key_Space);
    override.ignore();
    QApplication::sendEvent(&control, &override);
    EXPECT_TRUE(override.isAccepted());

    press(keyEvent(Event::Type::KeyDown, 48, Command, u"\t"_s), Qt::Key_Tab);
    EXPECT_EQ(control.keyCombo(), (KeyCombo{Command, 48}));
    EXPECT_TRUE(control.hasFocus());
}

TEST_F(SRRecorderControlTest, tabAlone_movesTheFocus_andSoEndsRecording)
{
    press(SpaceKey, Qt::Key_Space);
    press(keyEvent(Event::Type::KeyDown, 48, 0, u"\t"_s), Qt::Key_Tab);
    EXPECT_TRUE(after.hasFocus());
    EXPECT_FALSE(control.cell().isRecording());
}

TEST_F(SRRecorderControlTest, keyThatTheCellDoesNotUse_goesOn)
{
    application.event = letterX(0);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, u"x"_s);
    key.accept();
    QApplication::sendEvent(&control, &key);
    EXPECT_FALSE(key.isAccepted());
    EXPECT_FALSE(control.keyDown(letterX(0)));
    EXPECT_TRUE(control.keyDown(SpaceKey));
}

TEST_F(SRRecorderControlTest, keyThatTheCellDoesNotUse_isOfferedToItOnce)
{
    control.setCanCaptureGlobalHotKeys(true);
    press(SpaceKey, Qt::Key_Space);
    ASSERT_EQ(symbolicHotKeys.pushes, 1);
    // One that the cell answers by starting anew, and so can be counted.
    press(keyEvent(Event::Type::KeyDown, 7, 0, u" x"_s), Qt::Key_X);
    EXPECT_TRUE(control.cell().isRecording());
    EXPECT_EQ(symbolicHotKeys.pushes, 2);
}

TEST_F(SRRecorderControlTest, keyEquivalents_areOfferedToTheFirstResponderOnly)
{
    before.setFocus();
    EXPECT_FALSE(control.performKeyEquivalent(SpaceKey));
    EXPECT_FALSE(control.cell().isRecording());
    control.setFocus();
    EXPECT_FALSE(control.performKeyEquivalent(letterX(0)));
    EXPECT_TRUE(control.performKeyEquivalent(SpaceKey));
    EXPECT_TRUE(control.cell().isRecording());
}

TEST_F(SRRecorderControlTest, acceptsTheFocus_andTheFirstClick)
{
    EXPECT_TRUE(SRRecorderControl::acceptsFirstResponder());
    EXPECT_TRUE(SRRecorderControl::acceptsFirstMouse());
    before.setFocus();
    QTest::keyClick(&before, Qt::Key_Tab);
    EXPECT_TRUE(control.hasFocus()) << "the keyboard reaches it";
}

TEST_F(SRRecorderControlTest, losingTheFocus_endsRecording_andGivesTheSystemsShortcutsBack)
{
    control.setCanCaptureGlobalHotKeys(true);
    press(SpaceKey, Qt::Key_Space);
    EXPECT_EQ(symbolicHotKeys.pushed.size(), 1);
    before.setFocus();
    EXPECT_FALSE(control.cell().isRecording());
    EXPECT_TRUE(symbolicHotKeys.pushed.isEmpty());
}

TEST_F(SRRecorderControlTest, hidingOrDisablingIt_endsRecordingToo)
{
    control.setCanCaptureGlobalHotKeys(true);
    press(SpaceKey, Qt::Key_Space);
    window.hide();
    EXPECT_TRUE(symbolicHotKeys.pushed.isEmpty());
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    control.setFocus();
    press(SpaceKey, Qt::Key_Space);
    EXPECT_EQ(symbolicHotKeys.pushed.size(), 1);
    control.setEnabled(false);
    EXPECT_TRUE(symbolicHotKeys.pushed.isEmpty());
    EXPECT_FALSE(control.cell().isEnabled());
}

TEST_F(SRRecorderControlTest, alertOfTheCell_mayTakeTheFocus_andRecordingGoesOn)
{
    listener.takes = true;
    control.setCanCaptureGlobalHotKeys(true);
    press(SpaceKey, Qt::Key_Space);
    alerts.whileShown = [this] {
        QFocusEvent out(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
        QApplication::sendEvent(&control, &out);
    };
    press(letterX(Command), Qt::Key_X);
    EXPECT_EQ(alerts.shown.size(), 1);
    EXPECT_TRUE(control.cell().isRecording());
    EXPECT_EQ(listener.asked, (QList<std::pair<qint64, quint64>>{{7, Command}}));
    EXPECT_TRUE(alerts.shown[0].informativeText.contains(u"it is reserved"_s));
}

// The mouse

TEST_F(SRRecorderControlTest, clickIntoTheMainArea_recordsWithTheFocus)
{
    before.setFocus();
    click({20, 11});
    EXPECT_TRUE(control.cell().isRecording());
    EXPECT_TRUE(control.hasFocus());
}

TEST_F(SRRecorderControlTest, clickOnTheRemoveButton_clears)
{
    control.setKeyCombo({Command, 6});
    click({control.width() - 10, 11});
    EXPECT_EQ(control.keyCombo().code, -1);
}

TEST_F(SRRecorderControlTest, rightClick_doesNothing)
{
    control.setKeyCombo({Command, 6});
    application.event = mouse(Event::Type::RightMouseDown, {20, 11});
    QTest::mouseClick(&control, Qt::RightButton, Qt::NoModifier, {20, 11});
    EXPECT_FALSE(control.cell().isRecording());
}

TEST_F(SRRecorderControlTest, rightToLeft_theButtonsAreAtTheLeft)
{
    control.setLayoutDirection(Qt::RightToLeft);
    control.setKeyCombo({Command, 6});
    click({10, 11});
    EXPECT_EQ(control.keyCombo().code, -1);
    control.setKeyCombo({Command, 6});
    click({control.width() - 10, 11});
    EXPECT_TRUE(control.cell().isRecording());
}

TEST_F(SRRecorderControlTest, pointerOverTheButton_isTracked)
{
    control.setKeyCombo({Command, 6});
    pointAt({20, 11});
    control.resetTrackingRects();
    EXPECT_FALSE(control.cell().mouseInsideTrackingArea());
    pointAt({control.width() - 10, 11});
    EXPECT_TRUE(control.cell().mouseInsideTrackingArea());
    pointAt({control.width() - 10, 1});
    EXPECT_FALSE(control.cell().mouseInsideTrackingArea()) << "above it";
    pointAt({control.width() - 10, 11});
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&control, &leave);
    EXPECT_FALSE(control.cell().mouseInsideTrackingArea());
}

TEST_F(SRRecorderControlTest, trackingFollowsTheFrame)
{
    control.setKeyCombo({Command, 6});
    window.resize(400, 120);
    window.layout()->activate();
    pointAt({control.width() - 10, 11});
    EXPECT_TRUE(control.cell().mouseInsideTrackingArea());
}

TEST(TrackingRects, leavingIsToldBeforeEntering)
{
    TrackingRects rects;
    const auto left = rects.add({0, 0, 10, 10}, false);
    const auto right = rects.add({10, 0, 10, 10}, true);
    EXPECT_NE(left, right);
    QList<bool> crossed;
    const auto note = [&crossed](bool entered) { crossed.append(entered); };
    rects.pointerMoved({5, 5}, note);
    EXPECT_EQ(crossed, (QList<bool>{false, true}));
    rects.pointerMoved({6, 5}, note);
    EXPECT_EQ(crossed.size(), 2) << "nothing crossed";
    rects.remove(left);
    rects.remove(left);
    rects.pointerLeft(note);
    EXPECT_EQ(crossed.size(), 2) << "a removed one tells nothing";
}

// The frame

TEST_F(SRRecorderControlTest, heightIsForced_andWidthHasALeastOne)
{
    SRRecorderControl free;
    struct Row
    {
        QSizeF given;
        QSize size;
    };
    for (const Row& row : {Row{{30, 40}, {50, 22}}, Row{{50, 22}, {50, 22}}, Row{{200, 5}, {200, 22}},
                           Row{{0, 0}, {50, 22}}, Row{{-5, -5}, {50, 22}}}) {
        free.setFrameSize(row.given);
        EXPECT_EQ(free.size(), row.size);
        free.setFrame({QPointF(7, 9), row.given});
        EXPECT_EQ(free.geometry(), QRect(QPoint(7, 9), row.size));
    }
    free.resize(10, 100);
    EXPECT_EQ(free.size(), QSize(50, 22)) << "in whatever way";
    EXPECT_EQ(control.height(), 22);
}

// What is forwarded to the cell

TEST_F(SRRecorderControlTest, settings_areThoseOfTheCell)
{
    control.setKeyCombo({Command | Option, 6});
    control.setAllowedFlags(Command | Shift);
    control.setRequiredFlags(Shift);
    control.setAllowsKeyOnlyEscapeKeysRecord(true, true);
    control.setCanCaptureGlobalHotKeys(true);
    control.setAutosaveName(u"Test"_s);
    control.setStyle(1);
    control.setAnimates(true);
    const SRRecorderCell& cell = control.cell();
    EXPECT_EQ(control.keyCombo(), (KeyCombo{Command | Shift, 6}));
    EXPECT_EQ(cell.keyCombo(), control.keyCombo());
    EXPECT_EQ(cell.allowedFlags(), Command | Shift);
    EXPECT_EQ(control.allowedFlags(), Command | Shift);
    EXPECT_EQ(cell.requiredFlags(), Shift);
    EXPECT_EQ(control.requiredFlags(), Shift);
    EXPECT_TRUE(cell.allowsKeyOnly() && control.allowsKeyOnly());
    EXPECT_TRUE(cell.escapeKeysRecord() && control.escapeKeysRecord());
    EXPECT_TRUE(cell.canCaptureGlobalHotKeys() && control.canCaptureGlobalHotKeys());
    EXPECT_EQ(cell.autosaveName(), u"Test"_s);
    EXPECT_EQ(control.autosaveName(), u"Test"_s);
    EXPECT_EQ(cell.style(), 1);
    EXPECT_EQ(control.style(), 1);
    EXPECT_TRUE(cell.animates() && control.animates());
    EXPECT_EQ(control.delegate(), &listener);
    EXPECT_EQ(cell.delegate(), &control);
}

TEST_F(SRRecorderControlTest, flagConversions_areThoseOfTheFunctions)
{
    EXPECT_EQ(SRRecorderControl::cocoaToCarbonFlags(0x9E0000 | 0x10000), 0x801B00U);
    EXPECT_EQ(SRRecorderControl::carbonToCocoaFlags(0x801B00 | 0x400), 0x9E0000U);
}

TEST_F(SRRecorderControlTest, archivedControl_comesBackWithItsCell)
{
    control.setKeyCombo({Command, 6});
    control.setStyle(1);
    Archive archive(Archive::Form::Keyed);
    control.encodeWithCoder(archive);
    SRRecorderControl copy(archive);
    EXPECT_EQ(copy.keyCombo(), (KeyCombo{Command, 6}));
    EXPECT_EQ(copy.style(), 1);
    EXPECT_EQ(copy.cell().delegate(), &copy);
}

// The object value

TEST_F(SRRecorderControlTest, objectValue_isADictionary_orNothing)
{
    control.setKeyCombo({Option, 6});
    EXPECT_EQ(control.objectValue(), QVariant(QVariantMap{{u"keyCode"_s, qint64(6)},
                                                          {u"modifierFlags"_s, quint64(Option)},
                                                          {u"characters"_s, u"Z"_s}}));
    control.setAllowsKeyOnlyEscapeKeysRecord(true, false);
    control.setKeyCombo({0, 6});
    EXPECT_FALSE(control.objectValue().isValid()) << "a key alone";
    control.setKeyCombo({Option, -1});
    EXPECT_FALSE(control.objectValue().isValid());
}

TEST_F(SRRecorderControlTest, setObjectValue_takesTwoNumbers_andElseClears)
{
    struct Row
    {
        const char* name;
        QVariant value;
        KeyCombo combo;
    };
    const auto dictionary = [](const QVariant& code, const QVariant& flags) {
        QVariantMap map;
        if (code.isValid())
            map.insert(u"keyCode"_s, code);
        if (flags.isValid())
            map.insert(u"modifierFlags"_s, flags);
        return QVariant(map);
    };
    const QList<Row> rows{
        {"two numbers", dictionary(6, 0x80000), {Option, 6}},
        {"as they are stored", dictionary(quint64(6), quint64(0x80000)), {Option, 6}},
        {"the largest number is no key", dictionary(std::numeric_limits<quint64>::max(), 0U), {0, -1}},
        {"foreign bits", dictionary(6, 0xFFFFFFFFU), {0x9E0000, 6}},
        {"a key that there is not", dictionary(4000, 0x80000), {Option, 4000}},
        {"nothing", {}, {0, -1}},
        {"a text", u"Z"_s, {0, -1}},
        {"a number", 6, {0, -1}},
        {"a list", QVariantList{6, 0x80000}, {0, -1}},
        {"a text for the code", dictionary(u"6"_s, 0x80000), {0, -1}},
        {"a text for the flags", dictionary(6, u"524288"_s), {0, -1}},
        {"no code", dictionary({}, 0x80000), {0, -1}},
        {"no flags", dictionary(6, {}), {0, -1}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        control.setKeyCombo({Command, 8});
        listener.changes.clear();
        control.setObjectValue(row.value);
        EXPECT_EQ(control.keyCombo(), row.combo);
        EXPECT_EQ(listener.changes.size(), 1);
    }
}

// The binding

namespace {

Binding bindingTo(Model& model)
{
    Binding binding;
    binding.observedObject = BindingEntry<KeyValueObject*>(&model);
    binding.observedKeyPath = BindingEntry<QString>(u"values.combo"_s);
    return binding;
}

const QString Where = u"-[SRRecorderControl shortcutRecorderCell:keyComboDidChange:]"_s;

} // namespace

TEST_F(SRRecorderControlTest, valueBinding_takesDictionaries)
{
    EXPECT_EQ(SRRecorderControl::valueClassForBinding(u"value"_s), QMetaType::fromType<QVariantMap>());
    EXPECT_FALSE(SRRecorderControl::valueClassForBinding(u"enabled"_s).isValid());
}

TEST_F(SRRecorderControlTest, newCombination_goesToTheBoundObject)
{
    Model model;
    const Log log;
    control.bind(u"value"_s, bindingTo(model));
    EXPECT_NE(control.infoForBinding(u"value"_s), nullptr);
    control.setKeyCombo({Option, 6});
    ASSERT_EQ(model.set.size(), 1);
    EXPECT_EQ(model.set[0].first, u"values.combo"_s);
    EXPECT_EQ(model.set[0].second, control.objectValue());
    control.setKeyCombo({0, -1});
    EXPECT_FALSE(model.set.last().second.isValid());
    control.unbind(u"value"_s);
    EXPECT_EQ(control.infoForBinding(u"value"_s), nullptr);
    control.setKeyCombo({Option, 7});
    EXPECT_EQ(model.set.size(), 2);
    EXPECT_TRUE(log.lines().isEmpty());
}

TEST_F(SRRecorderControlTest, anotherBinding_isNotPushedTo)
{
    Model model;
    control.bind(u"enabled"_s, bindingTo(model));
    control.setKeyCombo({Option, 6});
    EXPECT_TRUE(model.set.isEmpty());
}

TEST_F(SRRecorderControlTest, binding_byItsEntries)
{
    using Entry = BindingEntry<std::shared_ptr<ValueTransformer>>;
    using Name = BindingEntry<QString>;
    const auto reversing = std::make_shared<Doubling>(true);
    const auto oneWay = std::make_shared<Doubling>(false);
    ValueTransformer::setValueTransformerForName(reversing, u"Doubling"_s);
    enum class Pushed { Nothing, Plain, Transformed };
    const QString noReverse =
        u"WARNING: value has value transformer, but it doesn't allow reverse transformations in "_s + Where;
    struct Row
    {
        const char* name;
        Entry transformer;
        Name transformerName;
        Pushed pushed;
        QStringList log;
    };
    const QList<Row> rows{
        {"no transformer", {}, {}, Pushed::Plain, {}},
        {"a transformer", Entry(reversing), {}, Pushed::Transformed, {}},
        {"a transformer and a name: the name does not count",
         Entry(reversing),
         Name(u"Nobody"_s),
         Pushed::Transformed,
         {}},
        {"a name only", {}, Name(u"Doubling"_s), Pushed::Transformed, {}},
        {"the null object and a name", Entry::nullObject(), Name(u"Doubling"_s), Pushed::Transformed, {}},
        {"the null object twice", Entry::nullObject(), Name::nullObject(), Pushed::Plain, {}},
        {"the null object for a name", {}, Name::nullObject(), Pushed::Plain, {}},
        {"a name that nobody has", {}, Name(u"Nobody"_s), Pushed::Plain, {}},
        {"a transformer of one direction", Entry(oneWay), {}, Pushed::Plain, {noReverse}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Model model;
        Binding binding = bindingTo(model);
        binding.valueTransformer = row.transformer;
        binding.valueTransformerName = row.transformerName;
        control.bind(u"value"_s, binding);
        const Log log;
        control.setKeyCombo({Option, 6});
        EXPECT_EQ(log.lines(), row.log);
        ASSERT_EQ(model.set.size(), row.pushed == Pushed::Nothing ? 0 : 1);
        const QVariant plain = control.objectValue();
        EXPECT_EQ(model.set[0].second,
                  row.pushed == Pushed::Plain ? plain : QVariant(QVariantList{plain, plain}));
        EXPECT_EQ(listener.changes.last().second, (KeyCombo{Option, 6})) << "the delegate is told before";
    }
    ValueTransformer::setValueTransformerForName(nullptr, u"Doubling"_s);
}

TEST_F(SRRecorderControlTest, bindingWithoutAnObjectOrAKeyPath_isLogged_andTheCombinationStays)
{
    const QString noObject = u"ERROR: NSObservedObjectKey was nil for value binding in "_s + Where;
    const QString noKeyPath = u"ERROR: NSObservedKeyPathKey was nil for value binding in "_s + Where;
    Model model;
    const auto with = [&model](auto change) {
        Binding binding = bindingTo(model);
        change(binding);
        return binding;
    };
    struct Row
    {
        const char* name;
        Binding binding;
        QString line;
    };
    const QList<Row> rows{
        {"a missing object", with([](Binding& binding) { binding.observedObject = {}; }), noObject},
        {"the null object",
         with([](Binding& binding) { binding.observedObject = BindingEntry<KeyValueObject*>::nullObject(); }),
         noObject},
        {"a missing key path", with([](Binding& binding) { binding.observedKeyPath = {}; }), noKeyPath},
        {"the null object for it",
         with([](Binding& binding) { binding.observedKeyPath = BindingEntry<QString>::nullObject(); }),
         noKeyPath},
        {"neither: the object is missed first", Binding(), noObject},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        control.unbind(u"value"_s);
        control.setKeyCombo({0, -1});
        control.bind(u"value"_s, row.binding);
        const Log log;
        control.setKeyCombo({Option, 6});
        EXPECT_EQ(log.lines(), QStringList{row.line});
        EXPECT_TRUE(model.set.isEmpty());
        EXPECT_EQ(control.keyCombo(), (KeyCombo{Option, 6}));
    }
}

// What a screen reader says

TEST_F(SRRecorderControlTest, spokenText_tellsNameCombinationAndWhatToDo)
{
    EXPECT_EQ(control.spokenText(), u"Shortcut, none, press Space to record"_s);
    control.setKeyCombo({Option, 6});
    EXPECT_EQ(control.spokenText(), u"Shortcut, Option Z, press Space to record"_s);
    control.setAccessibleName(u"Hot key"_s);
    EXPECT_EQ(control.spokenText(), u"Hot key, Option Z, press Space to record"_s);
    press(SpaceKey, Qt::Key_Space);
    EXPECT_EQ(control.spokenText(), u"Hot key, recording, type shortcut or press Escape to cancel"_s);
    press(EscapeKey, Qt::Key_Escape);
    control.setEnabled(false);
    EXPECT_EQ(control.spokenText(), u"Hot key, Option Z"_s);
}

TEST_F(SRRecorderControlTest, accessible_hasRoleNameStateAndAction)
{
    auto* accessible = QAccessible::queryAccessibleInterface(&control);
    ASSERT_NE(accessible, nullptr);
    control.setKeyCombo({Option, 6});
    EXPECT_EQ(accessible->role(), QAccessible::Button);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"Shortcut, Option Z, press Space to record"_s);
    EXPECT_TRUE(accessible->state().focusable);
    EXPECT_TRUE(accessible->state().focused);
    EXPECT_FALSE(accessible->state().disabled);
    auto* action = accessible->actionInterface();
    ASSERT_NE(action, nullptr);
    EXPECT_EQ(action->actionNames().first(), QAccessibleActionInterface::pressAction());
    before.setFocus();
    action->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(control.cell().isRecording());
    EXPECT_TRUE(control.hasFocus());
    control.setEnabled(false);
    EXPECT_TRUE(accessible->state().disabled);
    EXPECT_FALSE(action->actionNames().contains(QAccessibleActionInterface::pressAction()));
}

// Colours

TEST_F(SRRecorderControlTest, newPalette_mixesTheRecordingLookAnew)
{
    const auto drawn = [this] {
        QImage image(control.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        control.render(&image);
        return image.pixelColor(image.width() - 4, 3);
    };
    press(SpaceKey, Qt::Key_Space);
    QPalette palette = control.palette();
    palette.setColor(QPalette::Highlight, Qt::red);
    control.setPalette(palette);
    EXPECT_GT(drawn().red(), drawn().blue() + 50);
    palette.setColor(QPalette::Highlight, Qt::blue);
    control.setPalette(palette);
    EXPECT_GT(drawn().blue(), drawn().red() + 50);
}
