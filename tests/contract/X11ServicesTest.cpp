// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/LinuxSymbolicHotKeys.h"
#include "platform/linux/hotkeys/X11HotKeys.h"
#include "platform/linux/hotkeys/XkbKeyboardLayout.h"
#include "platform/linux/look/LinuxLook.h"
#include "platform/linux/tray/LinuxTrayHost.h"
#include "platform/linux/tray/StatusNotifierItem.h"
#include "platform/linux/x11/X11Connection.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>
#include <xcb/xcb.h>

// The C header has a member named as a C++ keyword.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr quint32 Option = 0x800;
constexpr int F5 = 96;
constexpr quint8 F5KeyCode = 71;
constexpr int KeyZ = 6;

void run(const QString& program, const QStringList& arguments)
{
    EXPECT_EQ(QProcess::execute(program, arguments), 0) << program.toStdString();
}

/// Another client of the same X server.
class OtherClient
{
public:
    OtherClient() : _connection(xcb_connect(nullptr, nullptr))
    {
        _root = xcb_setup_roots_iterator(xcb_get_setup(_connection)).data->root;
    }
    ~OtherClient() { xcb_disconnect(_connection); }
    OtherClient(const OtherClient&) = delete;
    OtherClient& operator=(const OtherClient&) = delete;

    /// Takes Alt and the key wherever the focus is; false when somebody has it.
    bool grabKey(quint8 keyCode)
    {
        const XcbOwned<xcb_generic_error_t> error(xcb_request_check(
            _connection, xcb_grab_key_checked(_connection, 0, _root, XCB_MOD_MASK_1, keyCode,
                                              XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));
        return !error;
    }

    bool grabKeyboard()
    {
        const XcbOwned<xcb_grab_keyboard_reply_t> reply(
            xcb_grab_keyboard_reply(_connection,
                                    xcb_grab_keyboard(_connection, 0, _root, XCB_CURRENT_TIME,
                                                      XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                                    nullptr));
        return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
    }
    void ungrabKeyboard()
    {
        xcb_ungrab_keyboard(_connection, XCB_CURRENT_TIME);
        sync();
    }

    /// Key presses that have come since the last time.
    int keyPresses()
    {
        int presses = 0;
        sync();
        while (const auto event = XcbOwned<xcb_generic_event_t>(xcb_poll_for_event(_connection)))
            presses += (event->response_type & 0x7F) == XCB_KEY_PRESS ? 1 : 0;
        return presses;
    }

    /// As the window of another program that comes to the front.
    void takeFocus()
    {
        const xcb_window_t window = xcb_generate_id(_connection);
        xcb_create_window(_connection, XCB_COPY_FROM_PARENT, window, _root, 0, 0, 50, 50, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_map_window(_connection, window);
        sync();
        EXPECT_TRUE(QTest::qWaitFor([&] {
            xcb_set_input_focus(_connection, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
            const XcbOwned<xcb_get_input_focus_reply_t> reply(
                xcb_get_input_focus_reply(_connection, xcb_get_input_focus(_connection), nullptr));
            return reply && reply->focus == window;
        }));
    }

    void lockGroup(quint8 group)
    {
        xcb_xkb_use_extension_unchecked(_connection, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION);
        xcb_xkb_latch_lock_state(_connection, XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1, group, 0, 0, 0);
        sync();
    }

    void ownSelection(const char* name)
    {
        const XcbOwned<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
            _connection, xcb_intern_atom(_connection, 0, quint16(qstrlen(name)), name), nullptr));
        const xcb_window_t window = xcb_generate_id(_connection);
        xcb_create_window(_connection, XCB_COPY_FROM_PARENT, window, _root, 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_set_selection_owner(_connection, window, atom->atom, XCB_CURRENT_TIME);
        sync();
    }

    void sync()
    {
        const XcbOwned<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(_connection, xcb_get_input_focus(_connection), nullptr));
    }

private:
    xcb_connection_t* _connection;
    xcb_window_t _root = 0;
};

QString typed(const XkbKeyboardLayout& layout, quint16 keyCode, quint32 state = 0)
{
    quint32 deadKeys = 0;
    const auto source = layout.copyCurrentKeyboardInputSource();
    return source ? source->keyTranslate(keyCode, 3, state, layout.keyboardType(), 0, deadKeys)
                        .value_or(u"(failed)"_s)
                  : u"(no layout)"_s;
}

class KeyboardLayoutOnX11 : public ::testing::Test
{
protected:
    KeyboardLayoutOnX11() { run(u"setxkbmap"_s, {u"us"_s}); }
    ~KeyboardLayoutOnX11() override { run(u"setxkbmap"_s, {u"us"_s}); }
};

TEST_F(KeyboardLayoutOnX11, keys_typeWhatTheServersMapSays)
{
    const XkbKeyboardLayout layout;
    EXPECT_TRUE(QTest::qWaitFor([&] { return typed(layout, KeyZ) == u"z"_s; }));
    EXPECT_EQ(typed(layout, KeyZ, 0x200), u"Z"_s);
    EXPECT_EQ(typed(layout, KeyZ, 0x800), u"z"_s) << "Alt does not change the letter";
    EXPECT_EQ(typed(layout, KeyZ, 0xA00), u"Z"_s);
    EXPECT_EQ(typed(layout, 52), u""_s) << "an unassigned key types nothing";
    EXPECT_EQ(typed(layout, 200), u"(failed)"_s);
}

TEST_F(KeyboardLayoutOnX11, newMap_isTold_andTypes)
{
    XkbKeyboardLayout layout;
    EXPECT_TRUE(QTest::qWaitFor([&] { return typed(layout, KeyZ) == u"z"_s; }));
    int changes = 0;
    layout.addSelectedKeyboardInputSourceChangedObserver([&] { ++changes; });
    run(u"setxkbmap"_s, {u"de"_s});
    EXPECT_TRUE(QTest::qWaitFor([&] { return changes > 0; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return typed(layout, KeyZ) == u"y"_s; }));
}

TEST_F(KeyboardLayoutOnX11, newGroup_isTold_andTypes)
{
    run(u"setxkbmap"_s, {u"us,ru"_s});
    XkbKeyboardLayout layout;
    EXPECT_TRUE(QTest::qWaitFor([&] { return typed(layout, 0) == u"a"_s; }));
    int changes = 0;
    layout.addSelectedKeyboardInputSourceChangedObserver([&] { ++changes; });
    OtherClient().lockGroup(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return changes > 0; }));
    EXPECT_EQ(typed(layout, 0), u"ф"_s);
    OtherClient().lockGroup(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return typed(layout, 0) == u"a"_s; }));
}

class SymbolicHotKeysOnX11 : public ::testing::Test
{
protected:
    [[nodiscard]] qsizetype listed(int keyCode)
    {
        return symbolic.copySymbolicHotKeys(keyCode, Option).value_or(QList<SymbolicHotKey>()).size();
    }

    static void press() { run(u"xdotool"_s, {u"key"_s, u"alt+F5"_s}); }

    X11HotKeys hotKeys;
    LinuxSymbolicHotKeys symbolic = LinuxSymbolicHotKeys(
        {DesktopShortcutStores({}, {}),
         {},
         [] { return nullptr; },
         [this](quint32 keyCode, quint32 modifiers) { return hotKeys.heldElsewhere(keyCode, modifiers); }});
    OtherClient other;
};

TEST_F(SymbolicHotKeysOnX11, combinationOfAnotherClient_isListed)
{
    EXPECT_EQ(listed(F5), 0);
    ASSERT_TRUE(other.grabKey(F5KeyCode));
    EXPECT_EQ(listed(F5), 1);
}

TEST_F(SymbolicHotKeysOnX11, trial_leavesNothingGrabbed)
{
    EXPECT_EQ(listed(F5), 0);
    EXPECT_TRUE(other.grabKey(F5KeyCode));
}

TEST_F(SymbolicHotKeysOnX11, ourOwnHotKey_isNotListed_andStaysOurs)
{
    const auto own = hotKeys.registerEventHotKey(F5, Option, {}, 0);
    ASSERT_TRUE(own);
    EXPECT_EQ(listed(F5), 0);
    EXPECT_FALSE(other.grabKey(F5KeyCode));
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
            return window->isActiveWindow();
        }));
        EXPECT_TRUE(other.grabKey(F5KeyCode));
        other.keyPresses();
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
    EXPECT_EQ(other.keyPresses(), 1);
    const auto token = symbolic.pushSymbolicHotKeyMode(SymbolicHotKeys::AllHotKeysDisabled);
    ASSERT_NE(token, 0U);
    press();
    EXPECT_TRUE(QTest::qWaitFor([this] { return window->presses == 1; }));
    EXPECT_EQ(other.keyPresses(), 0);
    symbolic.popSymbolicHotKeyMode(token);
    press();
    EXPECT_EQ(other.keyPresses(), 1);
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
    other.takeFocus();
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
    const auto ours = static_cast<xcb_window_t>(window->winId());
    symbolic.frontChanged({ours, QCoreApplication::applicationPid()});
    EXPECT_FALSE(other.grabKeyboard());
    EXPECT_EQ(window->lossesOfFocus, 0);
    symbolic.frontChanged({ours, 1});
    X11Connection::shared().sync();
    EXPECT_TRUE(other.grabKeyboard());
    EXPECT_EQ(window->lossesOfFocus, 1);
    other.ungrabKeyboard();
    symbolic.popSymbolicHotKeyMode(token);
    symbolic.frontChanged({ours, 1});
    EXPECT_EQ(window->lossesOfFocus, 1) << "nobody records";
}

TEST_F(SymbolicModeOnX11, keyboardOfAnotherProgramsWindow_isNotTaken)
{
    other.takeFocus();
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

TEST(TrayHostOnX11, ownerOfTheTraySelection_isAnEmbeddingHost_whileItIsThere)
{
    LinuxTrayHost host(QDBusConnection::sessionBus());
    EXPECT_EQ(host.kind(), TrayHost::Kind::None);
    int changes = 0;
    QObject::connect(&host, &TrayHost::changed, [&] { ++changes; });
    {
        OtherClient tray;
        tray.ownSelection("_NET_SYSTEM_TRAY_S0");
        EXPECT_TRUE(QTest::qWaitFor([&] { return host.kind() == TrayHost::Kind::Embedding; }));
        LinuxTrayHost later(QDBusConnection::sessionBus());
        EXPECT_TRUE(QTest::qWaitFor([&] { return later.kind() == TrayHost::Kind::Embedding; }));
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return host.kind() == TrayHost::Kind::None; }));
    EXPECT_EQ(changes, 2);
}

/// A host of published icons, as desktops have it on the session bus.
class PublishingHost final : public QDBusVirtualObject
{
public:
    PublishingHost() : _bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"host"_s))
    {
        _bus.registerVirtualObject(u"/StatusNotifierWatcher"_s, this);
        EXPECT_TRUE(_bus.registerService(u"org.kde.StatusNotifierWatcher"_s));
    }
    ~PublishingHost() override { QDBusConnection::disconnectFromBus(u"host"_s); }
    Q_DISABLE_COPY_MOVE(PublishingHost)

    QStringList registered; ///< items that have told it of themselves

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override
    {
        if (message.member() == u"RegisterStatusNotifierItem")
            registered.append(message.arguments().value(0).toString());
        const bool there =
            message.member() == u"Get" && message.arguments().value(1) == u"IsStatusNotifierHostRegistered"_s;
        return there && connection.send(message.createReply(QVariant::fromValue(QDBusVariant(true))));
    }

private:
    QDBusConnection _bus;
};

TEST(TrayHostOnX11, aHostOfPublishedIcons_goesBeforeOneThatEmbeds)
{
    OtherClient tray;
    tray.ownSelection("_NET_SYSTEM_TRAY_S0");
    LinuxTrayHost embedded(QDBusConnection::sessionBus());
    ASSERT_TRUE(QTest::qWaitFor([&] { return embedded.kind() == TrayHost::Kind::Embedding; }));
    const PublishingHost publishing;
    LinuxTrayHost host(QDBusConnection::sessionBus());
    QList<TrayHost::Kind> kinds;
    QObject::connect(&host, &TrayHost::changed, [&] { kinds.append(host.kind()); });
    EXPECT_TRUE(QTest::qWaitFor([&] { return !kinds.isEmpty(); }));
    EXPECT_EQ(kinds, QList<TrayHost::Kind>{TrayHost::Kind::Publishing});
    EXPECT_EQ(embedded.kind(), TrayHost::Kind::Embedding) << "an icon that is there stays where it is";
}

TEST(StatusNotifierItemOnTheBus, tellsEachHostThatComesOfItself)
{
    QMenu menu;
    const StatusNotifierItem item(QDBusConnection::sessionBus(), menu, [] {});
    for (int time = 0; time < 2; ++time) {
        const PublishingHost host;
        EXPECT_TRUE(QTest::qWaitFor([&] { return !host.registered.isEmpty(); }));
        EXPECT_EQ(host.registered, QStringList(QDBusConnection::sessionBus().baseService()));
    }
}

TEST(LinuxLookOfKde, isReadAgain_atEachOfTheSignalsThatItHasChanged)
{
    const QString path =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/kdeglobals"_s;
    const auto write = [&path](const char* factor) {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("[KDE]\nAnimationDurationFactor=") + factor + '\n');
    };
    write("1");
    const LinuxLook look({u"KDE"_s}, QDBusConnection::sessionBus());
    EXPECT_FALSE(look.reducesMotion());
    const auto tell = [](const QString& object, const QString& interface, const QString& signal) {
        QDBusConnection::sessionBus().send(QDBusMessage::createSignal(object, interface, signal));
    };
    write("0");
    tell(u"/KGlobalSettings"_s, u"org.kde.KGlobalSettings"_s, u"notifyChange"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return look.reducesMotion(); }));
    write("1");
    tell(u"/kdeglobals"_s, u"org.kde.kconfig.notify"_s, u"ConfigChanged"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !look.reducesMotion(); }));
    QFile::remove(path);
}

} // namespace
