// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/LinuxSymbolicHotKeys.h"

#include "platform/linux/keys/XkbKeymap.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr int KeyZ = 6;
constexpr int KeyY = 16;
constexpr quint32 Option = 0x800;

class LinuxSymbolicHotKeysTest : public ::testing::Test
{
protected:
    void write(const QByteArray& contents) const
    {
        QFile file(_folder.filePath(u"kglobalshortcutsrc"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents);
    }

    [[nodiscard]] std::optional<QList<SymbolicHotKey>> read(int candidate = 0, quint32 modifiers = Option)
    {
        LinuxSymbolicHotKeys hotKeys({
            DesktopShortcutStores(_folder.path(), {}),
            {u"KDE"_s},
            [this] { return keymap; },
            [this](quint32 keyCode, quint32 mask) { return int(keyCode) == heldKey && mask == Option; },
        });
        return hotKeys.copySymbolicHotKeys(candidate, modifiers);
    }

    QTemporaryDir _folder;
    std::shared_ptr<const XkbKeymap> keymap = XkbKeymap::ofNames("us");
    int heldKey = -1;
};

TEST_F(LinuxSymbolicHotKeysTest, list_hasVirtualKeyCodes_onTheLayoutThatTypes)
{
    write("[kwin]\nA=Alt+Z,none,A\nB=Meta+!,none,B\nC=Meta+Ж,none,C\n");
    const auto us = read();
    ASSERT_TRUE(us);
    ASSERT_EQ(us->size(), 2) << "what no key types is no shortcut";
    EXPECT_TRUE(us->at(0).enabled);
    EXPECT_EQ(us->at(0).code, KeyZ);
    EXPECT_EQ(us->at(0).modifiers, 0x800);
    EXPECT_EQ(us->at(1).code, 18) << "the key of the digit 1";
    EXPECT_EQ(us->at(1).modifiers, 0x300) << "with the Shift that the sign needs";
    keymap = XkbKeymap::ofNames("de");
    const auto de = read();
    ASSERT_TRUE(de && !de->isEmpty());
    EXPECT_EQ(de->at(0).code, KeyY);
}

TEST_F(LinuxSymbolicHotKeysTest, candidateThatSomebodyHolds_isInTheList)
{
    heldKey = 96;
    const auto taken = read(96);
    ASSERT_TRUE(taken);
    ASSERT_EQ(taken->size(), 1);
    EXPECT_EQ(taken->at(0).code, 96);
    EXPECT_EQ(taken->at(0).modifiers, 0x800);
    EXPECT_TRUE(read(96, Option | 0x10000)->size() == 1) << "other bits do not matter";
    EXPECT_TRUE(read(97)->isEmpty());
    EXPECT_TRUE(read(-1)->isEmpty()) << "no key is nobody's";
    EXPECT_TRUE(read(128)->isEmpty());
}

TEST_F(LinuxSymbolicHotKeysTest, storeThatCannotBeRead_givesNothing)
{
    QDir(_folder.path()).mkdir(u"kglobalshortcutsrc"_s);
    EXPECT_FALSE(read());
}

TEST_F(LinuxSymbolicHotKeysTest, keyboard_isTakenForAllPushes_andReleasedAfterTheLastPop)
{
    int taken = 0;
    int released = 0;
    LinuxSymbolicHotKeys hotKeys({DesktopShortcutStores({}, {}),
                                  {},
                                  [] { return nullptr; },
                                  [](quint32, quint32) { return false; },
                                  [&] { return ++taken > 0; },
                                  [&] { ++released; }});
    EXPECT_EQ(hotKeys.pushSymbolicHotKeyMode(0), 0U);
    EXPECT_EQ(taken, 0) << "that option asks for nothing";
    const auto first = hotKeys.pushSymbolicHotKeyMode(SymbolicHotKeys::AllHotKeysDisabled);
    const auto second = hotKeys.pushSymbolicHotKeyMode(SymbolicHotKeys::AllHotKeysDisabled);
    EXPECT_EQ(taken, 2);
    hotKeys.popSymbolicHotKeyMode(first);
    hotKeys.popSymbolicHotKeyMode(first);
    EXPECT_EQ(released, 0);
    hotKeys.popSymbolicHotKeyMode(second);
    EXPECT_EQ(released, 1);
}

TEST_F(LinuxSymbolicHotKeysTest, withoutADisplay_nothingCanBeSwitchedOff)
{
    LinuxSymbolicHotKeys hotKeys({DesktopShortcutStores({}, {}), {}, [] { return nullptr; }, {}});
    EXPECT_EQ(hotKeys.pushSymbolicHotKeyMode(SymbolicHotKeys::AllHotKeysDisabled), 0U);
    hotKeys.popSymbolicHotKeyMode(0);
    hotKeys.popSymbolicHotKeyMode(7);
}

} // namespace
