// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/LinuxSymbolicHotKeys.h"

#include "platform/linux/hotkeys/X11HotKeys.h"
#include "platform/linux/hotkeys/X11ShortcutsInhibitor.h"
#include "platform/linux/input/X11Focus.h"
#include "platform/linux/keys/XkbKeymap.h"
#include "platform/linux/x11/X11Connection.h"
#include "tests/contract/session/OtherClient.h"
#include "tests/contract/shortcut/SymbolicHotKeysContract.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr quint32 Option = 0x800;
constexpr int F5 = 96;
constexpr quint8 F5KeyCode = 71;

/// Key presses that have come to it since the last time.
int keyPresses(OtherClient& client)
{
    int presses = 0;
    client.x11().sync();
    while (const auto event = XcbOwned<xcb_generic_event_t>(xcb_poll_for_event(client.x11().get())))
        presses += (event->response_type & 0x7F) == XCB_KEY_PRESS ? 1 : 0;
    return presses;
}

/// As the window of another program that comes to the front.
void takeFocus(OtherClient& client)
{
    X11Connection& x11 = client.x11();
    const xcb_window_t window = xcb_generate_id(x11.get());
    xcb_create_window(x11.get(), XCB_COPY_FROM_PARENT, window, x11.root(), 0, 0, 50, 50, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_map_window(x11.get(), window);
    x11.sync();
    EXPECT_TRUE(QTest::qWaitFor([&] {
        xcb_set_input_focus(x11.get(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
        return focusWindow(x11) == window;
    }));
}

/// The shortcuts of a desktop of the K kind, in a folder of their own.
class WrittenShortcuts
{
public:
    void write(const SymbolicHotKeysContract::Shortcuts& shortcuts) const
    {
        QByteArray text = "[desktop]\n";
        for (const auto& [code, modifiers] : shortcuts) {
            const QByteArray keys = keysOf(code, modifiers);
            text += "entry" + QByteArray::number(text.size()) + '=' + keys + ',' + keys + ",Entry\n";
        }
        QFile file(_path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    void makeUnreadable() const
    {
        QFile::remove(_path());
        ASSERT_TRUE(QDir().mkdir(_path()));
    }
    [[nodiscard]] DesktopShortcutStores stores() const { return {_folder.path(), {}}; }

private:
    [[nodiscard]] QString _path() const { return _folder.filePath(u"kglobalshortcutsrc"_s); }

    static QByteArray keysOf(qint64 code, quint32 modifiers)
    {
        QByteArray keys;
        if (modifiers & 0x1000)
            keys += "Ctrl+";
        if (modifiers & 0x800)
            keys += "Alt+";
        return keys + (code == 96 ? "F5" : code == 97 ? "F6" : "Z");
    }

    QTemporaryDir _folder;
};

TEST(SymbolicHotKeys, ofADesktop_keepTheContract)
{
    QWidget window; // nothing is recorded without the focus
    window.show();
    ASSERT_TRUE(QTest::qWaitFor([&window] {
        window.activateWindow();
        return window.isActiveWindow();
    }));
    const WrittenShortcuts written;
    X11ShortcutsInhibitor inhibitor;
    LinuxSymbolicHotKeys hotKeys({written.stores(),
                                  {u"KDE"_s},
                                  [] { return XkbKeymap::ofNames("us"); },
                                  [](quint32, quint32) { return false; },
                                  [&] { return inhibitor.take(); },
                                  [&] { inhibitor.release(); }});
    OtherClient other;
    SymbolicHotKeysContract contract(
        {.hotKeys = hotKeys,
         .setDesktops =
             [&written](const SymbolicHotKeysContract::Shortcuts& shortcuts) { written.write(shortcuts); },
         .makeUnreadable = [&written] { written.makeUnreadable(); },
         .switchedOff =
             [&other] {
                 X11Connection::shared().sync();
                 return !other.canTakeKeyboard();
             }});
    contract.run();
}

class SymbolicHotKeysOnX11 : public ::testing::Test
{
protected:
    [[nodiscard]] qsizetype listed(int keyCode)
    {
        return symbolic.copySymbolicHotKeys(keyCode, Option).value_or(QList<SymbolicHotKey>()).size();
    }

    static void press() { EXPECT_EQ(QProcess::execute(u"xdotool"_s, {u"key"_s, u"alt+F5"_s}), 0); }

    X11HotKeys hotKeys;
    X11ShortcutsInhibitor inhibitor;
    LinuxSymbolicHotKeys symbolic = LinuxSymbolicHotKeys(
        {DesktopShortcutStores({}, {}),
         {},
         [] { return nullptr; },
         [this](quint32 keyCode, quint32 modifiers) { return hotKeys.heldElsewhere(keyCode, modifiers); },
         [this] { return inhibitor.take(); },
         [this] { inhibitor.release(); }});
    OtherClient other;
};

TEST_F(SymbolicHotKeysOnX11, combinationOfAnotherClient_isListed)
{
    EXPECT_EQ(listed(F5), 0);
    ASSERT_TRUE(other.grab(F5KeyCode, XCB_MOD_MASK_1));
    EXPECT_EQ(listed(F5), 1);
}

TEST_F(SymbolicHotKeysOnX11, trial_leavesNothingGrabbed)
{
    EXPECT_EQ(listed(F5), 0);
    EXPECT_TRUE(other.grab(F5KeyCode, XCB_MOD_MASK_1));
}

TEST_F(SymbolicHotKeysOnX11, ourOwnHotKey_isNotListed_andStaysOurs)
{
    const auto own = hotKeys.registerEventHotKey(F5, Option, {}, 0);
    ASSERT_TRUE(own);
    EXPECT_EQ(listed(F5), 0);
    EXPECT_FALSE(other.grab(F5KeyCode, XCB_MOD_MASK_1));
    EXPECT_TRUE(hotKeys.unregisterEventHotKey(*own));
}

/// A window that counts the keys it gets, and how often it is told that it has lost the focus.
class KeyWindow final : public QWidget
{
public:
    int presses = 0;
    int lossesOfFocus = 0;
    void focusOutEvent(QFocusEvent* /*event*/) override { ++lossesOfFocus; }
    void keyPressEvent(QKeyEvent* event) override { presses += event->key() == Qt::Key_F5 ? 1 : 0; }
};

class SymbolicModeOnX11 : public SymbolicHotKeysOnX11
{
protected:
    SymbolicModeOnX11()
    {
        auto& x11 = X11Connection::shared();
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return x11.property32(x11.root(), "_NET_SUPPORTING_WM_CHECK").has_value(); }));
        window->show();
        EXPECT_TRUE(QTest::qWaitFor([this] {
            window->activateWindow();
            return window->isActiveWindow() && isAloneAndHasTheFocus();
        }));
        EXPECT_TRUE(other.grab(F5KeyCode, XCB_MOD_MASK_1));
        keyPresses(other);
    }

    /// The window manager moves the focus once more when it hears that a window of the test before is gone.
    [[nodiscard]] bool isAloneAndHasTheFocus() const
    {
        X11Connection& x11 = X11Connection::shared();
        const auto own = static_cast<std::uint32_t>(window->winId());
        return x11.property32(x11.root(), "_NET_CLIENT_LIST") == QList{own} && focusWindow(x11) == own;
    }

    [[nodiscard]] bool othersCanTakeTheKeyboard()
    {
        return QTest::qWaitFor([this] {
            if (!other.grabKeyboard())
                return false;
            other.ungrabKeyboard();
            return true;
        });
    }

    std::unique_ptr<KeyWindow> window = std::make_unique<KeyWindow>();
};

TEST_F(SymbolicModeOnX11, shortcutsOfOthers_reachOurWindow_untilTheyAreSwitchedOnAgain)
{
    press();
    EXPECT_EQ(keyPresses(other), 1);
    const auto token = symbolic.pushSymbolicHotKeyMode(SymbolicHotKeys::AllHotKeysDisabled);
    ASSERT_NE(token, 0U);
    press();
    EXPECT_TRUE(QTest::qWaitFor([this] { return window->presses == 1; }));
    EXPECT_EQ(keyPresses(other), 0);
    symbolic.popSymbolicHotKeyMode(token);
    press();
    EXPECT_EQ(keyPresses(other), 1);
    EXPECT_EQ(window->presses, 1);
}

TEST_F(SymbolicModeOnX11, keyboard_isGivenBackWithTheLastPop)
{
    const auto first = symbolic.pushSymbolicHotKeyMode(SymbolicHotKeys::AllHotKeysDisabled);
    const auto second = symbolic.pushSymbolicHotKeyMode(SymbolicHotKeys::AllHotKeysDisabled);
    EXPECT_NE(first, second);
    symbolic.popSymbolicHotKeyMode(first);
    symbolic.popSymbolicHotKeyMode(first);
    EXPECT_FALSE(other.grabKeyboard());
    symbolic.popSymbolicHotKeyMode(second);
    EXPECT_TRUE(othersCanTakeTheKeyboard());
}

TEST_F(SymbolicModeOnX11, lossOfTheFocus_givesTheKeyboardBack)
{
    const auto token = symbolic.pushSymbolicHotKeyMode(SymbolicHotKeys::AllHotKeysDisabled);
    ASSERT_NE(token, 0U);
    EXPECT_FALSE(other.grabKeyboard());
    takeFocus(other);
    EXPECT_TRUE(othersCanTakeTheKeyboard());
    symbolic.popSymbolicHotKeyMode(token);
}

TEST_F(SymbolicModeOnX11, endOfTheWindow_givesTheKeyboardBack)
{
    ASSERT_NE(symbolic.pushSymbolicHotKeyMode(SymbolicHotKeys::AllHotKeysDisabled), 0U);
    window.reset();
    EXPECT_TRUE(othersCanTakeTheKeyboard());
}

TEST_F(SymbolicModeOnX11, anotherProgramInFront_givesTheKeyboardBackAtOnce_andEndsTheFocusOfWhoRecords)
{
    const auto token = symbolic.pushSymbolicHotKeyMode(SymbolicHotKeys::AllHotKeysDisabled);
    ASSERT_NE(token, 0U);
    symbolic.frontChanged(QCoreApplication::applicationPid());
    EXPECT_FALSE(other.grabKeyboard());
    EXPECT_EQ(window->lossesOfFocus, 0);
    symbolic.frontChanged(1);
    X11Connection::shared().sync();
    EXPECT_TRUE(other.grabKeyboard());
    EXPECT_EQ(window->lossesOfFocus, 1);
    other.ungrabKeyboard();
    symbolic.popSymbolicHotKeyMode(token);
    symbolic.frontChanged(1);
    EXPECT_EQ(window->lossesOfFocus, 1) << "nobody records";
}

TEST_F(SymbolicModeOnX11, keyboardOfAnotherProgramsWindow_isNotTaken)
{
    takeFocus(other);
    EXPECT_EQ(symbolic.pushSymbolicHotKeyMode(SymbolicHotKeys::AllHotKeysDisabled), 0U);
    EXPECT_TRUE(other.grabKeyboard());
    other.ungrabKeyboard();
}

TEST_F(SymbolicModeOnX11, keyboardThatSomebodyHolds_isNotTaken)
{
    ASSERT_TRUE(other.grabKeyboard());
    EXPECT_EQ(symbolic.pushSymbolicHotKeyMode(SymbolicHotKeys::AllHotKeysDisabled), 0U);
    other.ungrabKeyboard();
    EXPECT_EQ(symbolic.pushSymbolicHotKeyMode(0), 0U) << "nothing to switch off";
}

} // namespace
