// SPDX-License-Identifier: MIT
#include "tests/unit/app/AppControllerFixture.h"

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr quint32 KeyX = 7;
constexpr quint32 KeyZ = 6;

class HotKeyTest : public AppControllerFixture
{
protected:
    /// What the recorder writes, in its order.
    static void record(const QVariant& keyCode, quint64 flags)
    {
        set(TWTriggerModifiersKey, flags);
        set(TWTriggerCharacterKey, keyCode);
        set(TWTriggerKey, u"recorded"_s);
    }

    [[nodiscard]] int popUpsAtPress(quint32 keyCode, quint32 modifiers)
    {
        presenter.popUps.clear();
        hotKeys.press(keyCode, modifiers);
        return static_cast<int>(presenter.popUps.size());
    }
};

TEST_F(HotKeyTest, modifierFlags_becomeEventModifiers_andOtherBitsAreDropped)
{
    struct Row
    {
        const char* sentence;
        quint32 flags;
        quint32 modifiers;
    };
    const Row rows[] = {
        {"none", 0, 0},
        {"Command", 0x100000, 0x100},
        {"Shift", 0x20000, 0x200},
        {"Option", 0x80000, 0x800},
        {"Control", 0x40000, 0x1000},
        {"Command and Control", 0x140000, 0x1100},
        {"Command, Option and Shift", 0x1A0000, 0xB00},
        {"all four", 0x1E0000, 0x1B00},
        {"caps lock is dropped", 0x10000, 0},
        {"the function key is dropped", 0x800000 | 0x80000, 0x800},
        {"the numeric pad is dropped", 0x200000, 0},
        {"device-dependent bits are dropped", 0x0000FFFF, 0},
        {"every bit", 0xFFFFFFFF, 0x1B00},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.sentence);
        EXPECT_EQ(translateModifierFlags(row.flags), row.modifiers);
    }
}

TEST_F(HotKeyTest, defaultHotKey_isOptionZ_andPopsTheMirrorUpAtThePointer)
{
    start();
    screens.mouse = {321, 654};
    ASSERT_EQ(hotKeys.registered.size(), 1);
    const FakeHotKeys::HotKey& hotKey = hotKeys.registered.first();
    EXPECT_EQ(hotKey.keyCode, KeyZ);
    EXPECT_EQ(hotKey.modifiers, 0x800U);
    EXPECT_EQ(hotKey.id.signature, 0x747A7131U);
    EXPECT_EQ(hotKey.id.id, 1U);
    EXPECT_EQ(hotKey.options, 0U);

    EXPECT_TRUE(hotKeys.press(KeyZ, 0x800));
    ASSERT_EQ(presenter.popUps.size(), 1);
    EXPECT_EQ(presenter.popUps.first().menu, probe().mirror()->menu());
    EXPECT_EQ(presenter.popUps.first().item, nullptr);
    EXPECT_EQ(presenter.popUps.first().location, QPointF(321, 654));
}

TEST_F(HotKeyTest, handler_saysThatThePressIsDealtWith)
{
    start();
    EXPECT_EQ(myHotKeyHandler(*controller), 0);
    EXPECT_EQ(presenter.popUps.size(), 1);
}

TEST_F(HotKeyTest, recordedCommandControlX_isRegistered_andTheOldOneGivenBack)
{
    start();
    record(quint64(KeyX), 0x140000);
    ASSERT_EQ(hotKeys.registered.size(), 1);
    EXPECT_TRUE(hotKeys.holds(KeyX, 0x1100));
    EXPECT_EQ(popUpsAtPress(KeyX, 0x1100), 1);
    EXPECT_EQ(popUpsAtPress(KeyZ, 0x800), 0);
}

TEST_F(HotKeyTest, capsLockAndFunctionKeyFlagsInTheSetting_areIgnored)
{
    start();
    record(quint64(KeyX), 0x100000080000 | 0x810000);
    EXPECT_TRUE(hotKeys.holds(KeyX, 0x800));
}

TEST_F(HotKeyTest, keyOrModifiersAlone_changeNothing_untilTheTextIsWritten)
{
    start();
    set(TWTriggerModifiersKey, quint64(0x140000));
    set(TWTriggerCharacterKey, quint64(KeyX));
    EXPECT_TRUE(journal.isEmpty());
    EXPECT_TRUE(hotKeys.holds(KeyZ, 0x800));
    set(TWTriggerKey, u"⌃⌘X"_s);
    EXPECT_TRUE(hotKeys.holds(KeyX, 0x1100));
}

TEST_F(HotKeyTest, registeringAgain_unregistersFirst_thenReadsBothNumbersAfresh)
{
    start();
    set(TWTriggerKey, u"˄Z"_s);
    EXPECT_EQ(journal,
              (Journal{u"read EnableHotkey"_s, u"unregister"_s, u"install handler"_s,
                       u"read TriggerModifiers"_s, u"read TriggerCharacterUInt"_s, u"register 6 0x800"_s}));
}

TEST_F(HotKeyTest, offAtStart_isNotRegistered_butARecordedOneIs)
{
    store.values[TWEnableHotKeyKey] = false;
    start();
    EXPECT_TRUE(hotKeys.registered.isEmpty());
    EXPECT_EQ(hotKeys.handlers, 0);

    record(quint64(KeyX), 0x140000);
    EXPECT_EQ(popUpsAtPress(KeyX, 0x1100), 1) << "with nothing to give back the setting is not asked";
    EXPECT_FALSE(probe().enableHotkey());
}

TEST_F(HotKeyTest, offAtStart_writtenOffAgain_isRegisteredAllTheSame)
{
    store.values[TWEnableHotKeyKey] = false;
    start();
    set(TWEnableHotKeyKey, false);
    EXPECT_TRUE(hotKeys.holds(KeyZ, 0x800));
    set(TWEnableHotKeyKey, false);
    EXPECT_TRUE(hotKeys.registered.isEmpty()) << "now there is one to give back";
}

TEST_F(HotKeyTest, switchedOffAndOn_unregistersTheDeadOneASecondTime_thenRegistersAfresh)
{
    start();
    const EventHotKeyRef first = hotKeys.registered.firstKey();

    set(TWEnableHotKeyKey, false);
    EXPECT_TRUE(hotKeys.registered.isEmpty());
    EXPECT_EQ(hotKeys.handlers, 1) << "nothing is installed when switched off";
    EXPECT_EQ(popUpsAtPress(KeyZ, 0x800), 0);

    set(TWEnableHotKeyKey, true);
    EXPECT_EQ(hotKeys.unregistered, (QList<EventHotKeyRef>{first, first}));
    ASSERT_EQ(hotKeys.registered.size(), 1);
    EXPECT_NE(hotKeys.registered.firstKey(), first);
    EXPECT_EQ(popUpsAtPress(KeyZ, 0x800), 1);
}

TEST_F(HotKeyTest, recordedWhileSwitchedOff_afterItWasOn_staysOff)
{
    start();
    set(TWEnableHotKeyKey, false);
    record(quint64(KeyX), 0x140000);
    EXPECT_TRUE(hotKeys.registered.isEmpty());
}

TEST_F(HotKeyTest, settingAsReadAtStart_isNotUpdated)
{
    start();
    set(TWEnableHotKeyKey, false);
    EXPECT_TRUE(probe().enableHotkey());
}

TEST_F(HotKeyTest, everyRegistrationInstallsAHandler_butOnePressPopsUpOnce)
{
    start();
    for (int i = 0; i < 3; ++i)
        set(TWTriggerKey, u"˄Z"_s);
    EXPECT_EQ(hotKeys.handlers, 4);
    EXPECT_EQ(popUpsAtPress(KeyZ, 0x800), 1);
    EXPECT_EQ(hotKeys.handlerRuns, 1);
}

TEST_F(HotKeyTest, combinationHeldElsewhere_isSilentlyNotRegistered)
{
    hotKeys.takenElsewhere.append({KeyZ, 0x800});
    start();
    EXPECT_TRUE(hotKeys.registered.isEmpty());
    EXPECT_TRUE(alerts.shown.isEmpty());
    EXPECT_EQ(application.beeps, 0);

    record(quint64(KeyX), 0x140000);
    EXPECT_TRUE(hotKeys.holds(KeyX, 0x1100));
    EXPECT_TRUE(hotKeys.unregistered.isEmpty()) << "there was none to give back";
}

TEST_F(HotKeyTest, refusedNewCombination_keepsTheDeadReference)
{
    start();
    const EventHotKeyRef first = hotKeys.registered.firstKey();
    hotKeys.takenElsewhere.append({KeyX, 0x1100});
    record(quint64(KeyX), 0x140000);
    EXPECT_TRUE(hotKeys.registered.isEmpty());
    set(TWEnableHotKeyKey, false);
    EXPECT_EQ(hotKeys.unregistered, (QList<EventHotKeyRef>{first, first}));
}

TEST_F(HotKeyTest, keyCodeOfMinusOne_isReadAs32Bits_andRefused)
{
    start();
    record(static_cast<quint64>(-1), 0);
    EXPECT_TRUE(journal.contains(u"register 4294967295 0x0"_s));
    EXPECT_TRUE(hotKeys.registered.isEmpty());
}

TEST_F(HotKeyTest, mouseButton_popsUpWhenSwitchedOnAndEqualToTheSetting)
{
    struct Row
    {
        const char* sentence;
        bool enabled;
        QVariant setting;
        quint64 code;
        int popUps;
    };
    const Row rows[] = {
        {"the default button, switched on", true, {}, 25, 1},
        {"the default button, switched off", false, {}, 25, 0},
        {"another code", true, {}, 26, 0},
        {"another setting", true, quint64(26), 25, 0},
        {"a setting that equals another code", true, quint64(26), 26, 1},
        {"a setting that equals in the low 32 bits only", true, quint64(0x100000019), 25, 0},
        {"an unreadable setting is the default", true, u"third"_s, 25, 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.sentence);
        presenter.popUps.clear();
        store.values[TWEnableMouseButtonKey] = row.enabled;
        start();
        set(TWMouseButtonKey, row.setting);
        controller->mouseHotKeyMouseButtonActioned(mouseHotKey, row.code);
        EXPECT_EQ(presenter.popUps.size(), row.popUps);
        controller.reset();
    }
}

TEST_F(HotKeyTest, mouseButtonSetting_isReadAtEachPress_andOnlyWhenSwitchedOn)
{
    start();
    controller->mouseHotKeyMouseButtonActioned(mouseHotKey, 25);
    EXPECT_TRUE(journal.isEmpty());

    set(TWEnableMouseButtonKey, true);
    journal.clear();
    store.values[TWMouseButtonKey] = quint64(26);
    controller->mouseHotKeyMouseButtonActioned(mouseHotKey, 26);
    EXPECT_EQ(journal, Journal{u"read MouseButton"_s});
    EXPECT_EQ(presenter.popUps.size(), 1);
}

TEST_F(HotKeyTest, trigger_neverRefreshesTheMirror_andShowsAnEmptyOneToo)
{
    accessibility.removeAttribute(editor, u"AXMenuBar"_s);
    start();
    EXPECT_FALSE(controller->menuHasItems());
    giveMenuBar(editor, u"File\n"_s);
    EXPECT_EQ(popUpsAtPress(KeyZ, 0x800), 1);
    EXPECT_EQ(rebuilds, 0);
    EXPECT_EQ(presenter.popUps.first().titles.first(), (QStringList{u""_s, u"Tarnwick"_s}));
}

} // namespace
