// SPDX-License-Identifier: MIT
// Hot keys asked of a desktop, on a session bus of the tests' own.
#include "foundation/SettingsKeys.h"
#include "foundation/UserDefaults.h"
#include "platform/linux/globalkeys/ConfiguredHotKeys.h"
#include "platform/linux/globalkeys/KGlobalAccelHotKeys.h"
#include "platform/linux/globalkeys/PortalHotKeys.h"
#include "platform/linux/globalkeys/waylandHotKeys.h"
#include "platform/qt/menu/MenuTracking.h"
#include "tests/contract/app/HotKeysContract.h"
#include "tests/contract/linux/globalkeys/FakeKGlobalAccel.h"
#include "tests/contract/linux/globalkeys/FakePortal.h"
#include "tests/contract/session/BusDaemon.h"
#include "tests/fakes/FakeDefaultsStore.h"
#include "tests/fakes/SharedPorts.h"

#include <QDBusConnectionInterface>
#include <QElapsedTimer>
#include <QMenu>
#include <QTest>
#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr quint32 Z = 6;
constexpr quint32 F5 = 96;
constexpr quint32 Option = 0x800;
constexpr quint32 Control = 0x1000;
constexpr int QtAltZ = 0x0800005a;
constexpr int QtControlZ = 0x0400005a;
constexpr int QtAltF5 = 0x09000034;
constexpr int Patience = 20000; // ms

using Kind = TriggerHint::Kind;
using By = PopUpTrigger::Kind;

QString typed(quint16 virtualKeyCode, bool shift)
{
    return virtualKeyCode == Z ? (shift ? u"Z"_s : u"z"_s) : QString();
}

class GlobalHotKeysTest : public ::testing::Test
{
public:
    ~GlobalHotKeysTest() override { QDBusConnection::disconnectFromBus(connectionName); }

protected:
    GlobalHotKeysTest()
    {
        static int number = 0;
        connectionName = u"program %1"_s.arg(++number);
        connection = QDBusConnection::connectToBus(address(), connectionName);
        EXPECT_TRUE(connection.isConnected());
    }

    static BusDaemon& daemon()
    {
        static BusDaemon one(BusDaemon::Services::None);
        return one;
    }
    static QString address() { return QString::fromLocal8Bit(daemon().address()); }

    GlobalHotKeys::Session session(Compositor compositor = Compositor::Unknown)
    {
        return {compositor,
                [this](std::function<void()> then) {
                    ++ordered;
                    fromEventLoop(std::move(then));
                },
                &typed};
    }
    /// Until the event loop has nothing more to do.
    static void settle()
    {
        for (int i = 0; i < 3; ++i) {
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents();
        }
    }
    void countPresses(GlobalHotKeys& keys)
    {
        keys.installEventHandler([this] {
            ++presses;
            return HotKeys::noErr;
        });
    }
    [[nodiscard]] static bool becomes(const std::function<bool()>& condition)
    {
        return QTest::qWaitFor(condition, Patience);
    }

    QString connectionName;
    QDBusConnection connection{QString()};
    FakeDefaultsStore store;
    SharedPorts shared{store};
    int ordered = 0; ///< presses that were handed on
    int presses = 0;
};

class KGlobalAccelTest : public GlobalHotKeysTest
{
protected:
    FakeKGlobalAccel service{address()};
    KGlobalAccelHotKeys keys{connection, session()};

    /// Lets the person press, and returns when what follows has happened.
    void press(int key, int repeats = 0)
    {
        static_cast<void>(keys.ownerOf(Z, Control)); // what was sent before has arrived, too
        const int before = ordered;
        if (service.press(key, repeats)) {
            EXPECT_TRUE(becomes([&] { return ordered > before; }));
        }
        QDBusConnectionInterface* const bus = connection.interface();
        EXPECT_TRUE(bus->isServiceRegistered(u"org.kde.KWin"_s)); // what was sent before has arrived, too
        settle();
    }
    [[nodiscard]] QList<int> keysOf(const QString& action) const { return service.ours().value(action).keys; }
};

TEST_F(KGlobalAccelTest, keepsThePromisesOfHotKeys)
{
    hotKeysContract(keys, [this] { press(QtAltF5); });
}

TEST_F(KGlobalAccelTest, registersTheKeyAsTheServiceWantsIt)
{
    ASSERT_TRUE(keys.registerEventHotKey(Z, Option, {}, 0));
    const auto ours = service.ours();
    ASSERT_EQ(ours.keys(), QStringList{u"pop-up"_s});
    const auto& shortcut = ours.first();
    EXPECT_EQ(shortcut.id, (QStringList{u"example.quorlane.Tarnwick"_s, u"pop-up"_s, u"Tarnwick"_s,
                                        u"Open the Menu at the Pointer"_s}));
    EXPECT_EQ(shortcut.keys, (QList<int>{QtAltZ, 0, 0, 0}));
    EXPECT_EQ(shortcut.flags, 6U) << "the program is there, and what is stored does not count";
    EXPECT_EQ(service.introduced(), QStringList{u"pop-up"_s});
    EXPECT_EQ(keys.hotKeyHint(Z, Option), (TriggerHint{Kind::Granted, u"Alt+Z"_s}));
}

TEST_F(KGlobalAccelTest, keysOfAnother_areRefusedWithHisName)
{
    service.giveToAnother(QtAltZ, {u"org.kde.dolphin.desktop"_s, u"_launch"_s, u"Dolphin"_s, u"Launch it"_s});
    EXPECT_EQ(keys.ownerOf(Z, Option), u"Dolphin: Launch it"_s);
    EXPECT_EQ(keys.ownerOf(Z, Control), std::nullopt);
    EXPECT_FALSE(keys.registerEventHotKey(Z, Option, {}, 0));
    EXPECT_EQ(keys.hotKeyHint(Z, Option), (TriggerHint{Kind::Taken, u"Dolphin: Launch it"_s}));
    EXPECT_TRUE(keys.registerEventHotKey(Z, Control, {}, 0)) << "others can be had";
    EXPECT_EQ(keysOf(u"pop-up"_s).value(0), QtControlZ);
    EXPECT_EQ(keys.ownerOf(Z, Control), std::nullopt) << "our own are not another's";
}

TEST_F(KGlobalAccelTest, mouseButton_isToPressTheHotKey)
{
    for (const quint64 button : {2, 3, 25})
        EXPECT_EQ(keys.mouseButtonHint(button), (TriggerHint{Kind::OfHotKey})) << button;
}

TEST_F(KGlobalAccelTest, sameKeysTwice_areRefused)
{
    EXPECT_TRUE(keys.registerEventHotKey(Z, Option, {}, 0));
    EXPECT_FALSE(keys.registerEventHotKey(Z, Option, {}, 0));
    EXPECT_TRUE(keys.registerEventHotKey(Z, Control, {}, 0));
    EXPECT_EQ(service.ours().size(), 2);
}

TEST_F(KGlobalAccelTest, otherKeys_takeThePlaceOfTheFormer)
{
    const auto first = keys.registerEventHotKey(Z, Option, {}, 0);
    ASSERT_TRUE(first);
    EXPECT_TRUE(keys.unregisterEventHotKey(*first));
    ASSERT_TRUE(keys.registerEventHotKey(Z, Control, {}, 0));
    EXPECT_EQ(keysOf(u"pop-up"_s), (QList<int>{QtControlZ, 0, 0, 0}));
    EXPECT_EQ(service.ours().size(), 1);
}

TEST_F(KGlobalAccelTest, atTheEnd_nothingIsLeftBehind)
{
    {
        KGlobalAccelHotKeys others{connection, session()};
        ASSERT_TRUE(others.registerEventHotKey(Z, Option, {}, 0));
        EXPECT_EQ(service.ours().size(), 1);
    }
    EXPECT_TRUE(becomes([this] { return service.ours().isEmpty(); }));
}

TEST_F(KGlobalAccelTest, serviceThatComesBack_isToldAgain)
{
    ASSERT_TRUE(keys.registerEventHotKey(F5, Option, {}, 0));
    countPresses(keys);
    service.vanish();
    EXPECT_TRUE(service.ours().isEmpty());
    service.appear();
    EXPECT_TRUE(becomes([this] { return service.ours().size() == 1; }));
    EXPECT_EQ(keysOf(u"pop-up"_s).value(0), QtAltF5);
    press(QtAltF5);
    EXPECT_EQ(presses, 1);
}

TEST_F(KGlobalAccelTest, serviceThatIsNotThereYet_isToldWhenItComes)
{
    service.vanish();
    ASSERT_TRUE(keys.registerEventHotKey(F5, Option, {}, 0));
    service.appear();
    EXPECT_TRUE(becomes([this] { return service.ours().size() == 1; }));
}

TEST_F(KGlobalAccelTest, serviceThatDoesNotAnswer_isNotWaitedForLong)
{
    service.setSilent(true);
    QElapsedTimer timer;
    timer.start();
    EXPECT_TRUE(keys.registerEventHotKey(Z, Option, {}, 0)) << "nobody has said that they are taken";
    EXPECT_GE(timer.restart(), 400);
    EXPECT_EQ(keys.ownerOf(Z, Control), std::nullopt);
    EXPECT_LT(timer.elapsed(), 2000);
    service.setSilent(false);
}

TEST_F(KGlobalAccelTest, keyThatIsHeld_isPressedOnce)
{
    ASSERT_TRUE(keys.registerEventHotKey(F5, Option, {}, 0));
    countPresses(keys);
    press(QtAltF5, 5);
    EXPECT_EQ(presses, 1);
    press(QtAltF5);
    EXPECT_EQ(presses, 2) << "it was let go";
}

TEST_F(KGlobalAccelTest, releaseThatIsNotTold_doesNotMakeTheKeyDead)
{
    ASSERT_TRUE(keys.registerEventHotKey(F5, Option, {}, 0));
    countPresses(keys);
    ASSERT_TRUE(service.pressOnly(QtAltF5));
    ASSERT_TRUE(becomes([this] { return presses == 1; }));
    QElapsedTimer sinceThen;
    sinceThen.start();
    ASSERT_TRUE(becomes([&] { return sinceThen.hasExpired(1100); }));
    ASSERT_TRUE(service.pressOnly(QtAltF5));
    EXPECT_TRUE(becomes([this] { return presses == 2; }));
}

TEST_F(KGlobalAccelTest, pressWhileAMenuIsOpen_isDropped)
{
    ASSERT_TRUE(keys.registerEventHotKey(F5, Option, {}, 0));
    countPresses(keys);
    QMenu menu;
    menu.addAction(u"Cut"_s);
    menu.popup({});
    ASSERT_TRUE(service.press(QtAltF5));
    ASSERT_TRUE(service.press(QtAltF5));
    static_cast<void>(keys.ownerOf(Z, Control));
    settle();
    EXPECT_EQ(presses, 0);
    menu.close();
    settle();
    press(QtAltF5);
    EXPECT_EQ(presses, 1);
}

TEST_F(KGlobalAccelTest, pressWhileAMenuIsClosing_comesAfterIt)
{
    ASSERT_TRUE(keys.registerEventHotKey(F5, Option, {}, 0));
    countPresses(keys);
    MenuTracking::shared().begin();
    press(QtAltF5);
    EXPECT_EQ(presses, 0);
    MenuTracking::shared().end();
    settle();
    EXPECT_EQ(presses, 1);
}

TEST_F(KGlobalAccelTest, keysThatThePersonChangesInTheSettings_areTold)
{
    ASSERT_TRUE(keys.registerEventHotKey(Z, Option, {}, 0));
    int changes = 0;
    keys.addChangeObserver([&] { ++changes; });
    service.change(u"pop-up"_s, QtControlZ);
    EXPECT_TRUE(becomes([&] { return changes > 0; }));
    EXPECT_EQ(keys.hotKeyHint(Z, Option), (TriggerHint{Kind::Granted, u"Ctrl+Z"_s}));
    countPresses(keys);
    press(QtControlZ);
    EXPECT_EQ(presses, 1);
}

TEST_F(KGlobalAccelTest, anotherLayout_isAnotherKey)
{
    QString types = u"z"_s;
    KGlobalAccelHotKeys others{connection,
                               {Compositor::KWin, fromEventLoop, [&](quint16, bool) { return types; }}};
    ASSERT_TRUE(others.registerEventHotKey(Z, Option, {}, 0));
    types = u"y"_s;
    others.layoutChanged();
    EXPECT_TRUE(becomes([this] { return keysOf(u"pop-up"_s).value(0) == 0x08000059; }));
}

TEST_F(KGlobalAccelTest, withoutABus_keysAreHadWhenItComes)
{
    keys.setBus(QDBusConnection(u"none"_s));
    ASSERT_TRUE(keys.registerEventHotKey(F5, Option, {}, 0));
    EXPECT_TRUE(service.ours().isEmpty());
    keys.setBus(connection);
    EXPECT_TRUE(becomes([this] { return service.ours().size() == 1; }));
    countPresses(keys);
    press(QtAltF5);
    EXPECT_EQ(presses, 1) << "and once only";
}

class PortalTest : public GlobalHotKeysTest
{
protected:
    FakePortal portal{address()};
    PortalHotKeys keys{address(), session(Compositor::Sway)};

    [[nodiscard]] Kind kind() const { return keys.hotKeyHint(Z, Option).kind; }
    void press(const QString& what)
    {
        const int before = ordered;
        if (portal.press(what)) {
            EXPECT_TRUE(becomes([&] { return ordered > before; }));
        }
        settle();
    }
    /// Returns when all that the portal has said so far waits in this thread to be heard.
    void waitUntilToldToKeys() const
    {
        portal.flush();
        for (int number = 1;; ++number) {
            const QDBusConnection theirs(u"tarnwick global shortcuts %1"_s.arg(number));
            ASSERT_LT(number, 1000);
            if (theirs.isConnected() && theirs.baseService() == portal.program)
                return FakePortal::flush(theirs);
        }
    }
    [[nodiscard]] bool registerAltZ() { return keys.registerEventHotKey(Z, Option, {}, 0).has_value(); }
};

TEST_F(PortalTest, keepsThePromisesOfHotKeys)
{
    hotKeysContract(keys, [this] {
        EXPECT_TRUE(becomes([this] {
            const Kind now = keys.hotKeyHint(F5, Option).kind;
            return now == Kind::Granted || (now == Kind::None && portal.session.isEmpty());
        }));
        press(u"ALT+F5"_s);
    });
}

TEST_F(PortalTest, saysWhoItIsFirst)
{
    ASSERT_TRUE(registerAltZ());
    EXPECT_EQ(kind(), Kind::Line) << "nothing waits for the portal";
    QList<Kind> seen{kind()};
    keys.addChangeObserver([&] {
        if (seen.last() != kind())
            seen.append(kind());
    });
    EXPECT_TRUE(becomes([this] { return kind() == Kind::Granted; }));
    EXPECT_EQ(seen, (QList{Kind::Line, Kind::Asked, Kind::Granted}));
    EXPECT_EQ(portal.calls, (QStringList{u"Register"_s, u"Get"_s, u"CreateSession"_s, u"BindShortcuts"_s}));
    EXPECT_EQ(portal.programs, QStringList{u"example.quorlane.Tarnwick"_s});
    ASSERT_EQ(portal.bound.size(), 1);
    EXPECT_EQ(portal.bound.front().id, u"pop-up"_s);
    EXPECT_EQ(portal.bound.front().properties.value(u"description"_s), u"Open the Menu at the Pointer"_s);
    EXPECT_EQ(keys.hotKeyHint(Z, Option), (TriggerHint{Kind::Granted, u"ALT+z"_s}));
}

TEST_F(PortalTest, personWhoIsAsked_mayTakeHisTime)
{
    portal.person = FakePortal::Person::IsAsked;
    ASSERT_TRUE(registerAltZ());
    EXPECT_TRUE(becomes([this] { return portal.calls.contains(u"BindShortcuts"_s); }));
    settle();
    EXPECT_EQ(kind(), Kind::Asked);
    int changes = 0;
    keys.addChangeObserver([&] { ++changes; });
    portal.answer(FakePortal::Person::Grants);
    EXPECT_TRUE(becomes([&] { return changes > 0; }));
    EXPECT_EQ(kind(), Kind::Granted);
}

TEST_F(PortalTest, desktopHasTheLastWord)
{
    portal.grantsInstead = u"Super+F12"_s;
    ASSERT_TRUE(registerAltZ());
    EXPECT_TRUE(becomes([this] { return kind() == Kind::Granted; }));
    EXPECT_EQ(keys.hotKeyHint(Z, Option).text, u"Super+F12"_s);
    countPresses(keys);
    press(u"Super+F12"_s);
    EXPECT_EQ(presses, 1);
    portal.change(u"pop-up"_s, u"Super+F11"_s);
    EXPECT_TRUE(becomes([this] { return keys.hotKeyHint(Z, Option).text == u"Super+F11"_s; }));
}

TEST_F(PortalTest, refusal_isTold)
{
    portal.person = FakePortal::Person::Refuses;
    ASSERT_TRUE(registerAltZ()) << "there is no alert about it";
    EXPECT_TRUE(becomes([this] { return kind() == Kind::Refused; }));
    portal.person = FakePortal::Person::Grants;
    ASSERT_TRUE(keys.registerEventHotKey(Z, Control, {}, 0)) << "other keys are another question";
    EXPECT_TRUE(becomes([this] { return keys.hotKeyHint(Z, Control).kind == Kind::Granted; }));
}

TEST_F(PortalTest, keysGivenBackWhileThePersonIsAsked_takeTheDialogAway)
{
    portal.person = FakePortal::Person::IsAsked;
    const auto hotKey = keys.registerEventHotKey(Z, Option, {}, 0);
    ASSERT_TRUE(hotKey);
    EXPECT_TRUE(becomes([this] { return portal.calls.contains(u"BindShortcuts"_s); }));
    EXPECT_TRUE(keys.unregisterEventHotKey(*hotKey));
    EXPECT_TRUE(becomes([this] { return portal.session.isEmpty() && portal.closedRequests == 1; }));
    EXPECT_EQ(kind(), Kind::None);
}

TEST_F(PortalTest, otherKeys_areAnotherSession)
{
    const auto first = keys.registerEventHotKey(Z, Option, {}, 0);
    ASSERT_TRUE(first);
    EXPECT_TRUE(becomes([this] { return kind() == Kind::Granted; }));
    const QString former = portal.session;
    EXPECT_TRUE(keys.unregisterEventHotKey(*first));
    ASSERT_TRUE(keys.registerEventHotKey(Z, Control, {}, 0));
    EXPECT_TRUE(becomes([this] { return keys.hotKeyHint(Z, Control).kind == Kind::Granted; }));
    EXPECT_NE(portal.session, former);
    EXPECT_EQ(portal.bound.size(), 1);
    EXPECT_EQ(keys.hotKeyHint(Z, Control).text, u"CTRL+z"_s);
}

TEST_F(PortalTest, portalWithoutShortcuts_leavesTheLine)
{
    portal.hasShortcuts = false;
    ASSERT_TRUE(registerAltZ());
    EXPECT_TRUE(becomes([this] { return kind() == Kind::Line; }));
    EXPECT_TRUE(keys.hotKeyHint(Z, Option).text.startsWith(u"bindsym Mod1+z exec "_s));
    EXPECT_FALSE(portal.calls.contains(u"CreateSession"_s));
}

TEST_F(PortalTest, whileItIsNotKnownWhetherThereAreShortcuts_nothingElseIsSaid)
{
    portal.hasShortcuts = false;
    ASSERT_TRUE(registerAltZ());
    QList<Kind> seen;
    keys.addChangeObserver([&] { seen.append(kind()); });
    EXPECT_TRUE(becomes([&] { return !seen.isEmpty(); }));
    EXPECT_EQ(seen, QList{Kind::Line}) << "or the preferences would change before the person's eyes";
}

TEST_F(PortalTest, keysThatChangeBeforeThePortalAnswers_areOneSession)
{
    const auto first = keys.registerEventHotKey(Z, Option, {}, 0);
    ASSERT_TRUE(first);
    EXPECT_TRUE(keys.unregisterEventHotKey(*first));
    ASSERT_TRUE(keys.registerEventHotKey(Z, Control, {}, 0));
    EXPECT_TRUE(becomes([this] { return keys.hotKeyHint(Z, Control).kind == Kind::Granted; }));
    settle();
    EXPECT_EQ(portal.calls, (QStringList{u"Register"_s, u"Get"_s, u"Register"_s, u"Get"_s, u"CreateSession"_s,
                                         u"BindShortcuts"_s}))
        << "the answer to an earlier question does not count";
}

TEST_F(PortalTest, closingOfAnEarlierSession_thatIsHeardLate_doesNotCount)
{
    const auto first = keys.registerEventHotKey(Z, Option, {}, 0);
    ASSERT_TRUE(first);
    EXPECT_TRUE(becomes([this] { return kind() == Kind::Granted; }));
    portal.closeSession();
    waitUntilToldToKeys(); // and it has not listened yet
    EXPECT_TRUE(keys.unregisterEventHotKey(*first));
    ASSERT_TRUE(keys.registerEventHotKey(Z, Control, {}, 0));
    bool refused = false;
    const auto hint = [this] { return keys.hotKeyHint(Z, Control).kind; };
    keys.addChangeObserver([&] { refused = refused || hint() == Kind::Refused; });
    EXPECT_TRUE(becomes([&] { return hint() == Kind::Granted; }));
    EXPECT_FALSE(refused);
}

TEST_F(PortalTest, portalThatAnotherReplaces_isAskedAgain)
{
    portal.person = FakePortal::Person::IsAsked;
    ASSERT_TRUE(registerAltZ());
    EXPECT_TRUE(becomes([this] { return portal.calls.contains(u"BindShortcuts"_s); }));
    FakePortal next{address()};
    EXPECT_TRUE(becomes([this] { return kind() == Kind::Granted; }));
    EXPECT_EQ(next.bound.size(), 1);
}

TEST_F(PortalTest, portalThatAnotherReplaces_takesItsSessionAlong)
{
    ASSERT_TRUE(registerAltZ());
    EXPECT_TRUE(becomes([this] { return kind() == Kind::Granted; }));
    FakePortal next{address()};
    EXPECT_TRUE(becomes([&] { return next.bound.size() == 1 && kind() == Kind::Granted; }));
    EXPECT_EQ(next.calls, (QStringList{u"Register"_s, u"Get"_s, u"CreateSession"_s, u"BindShortcuts"_s}))
        << "and of that one it is asked nothing";
}

TEST_F(PortalTest, portalThatKnowsNoKeys_leavesTheLine)
{
    portal.grantsNoKeys = true;
    ASSERT_TRUE(registerAltZ());
    EXPECT_TRUE(becomes([this] { return kind() == Kind::Line; }));
}

TEST_F(PortalTest, closedSession_isRefusedUntilAskedAnew)
{
    ASSERT_TRUE(registerAltZ());
    EXPECT_TRUE(becomes([this] { return kind() == Kind::Granted; }));
    portal.calls.clear();
    portal.closeSession();
    EXPECT_TRUE(becomes([this] { return kind() == Kind::Refused; }));
    settle();
    EXPECT_TRUE(portal.calls.isEmpty()) << "or the person would be asked again and again";
}

TEST_F(PortalTest, portalThatComesBack_isAskedAgain)
{
    ASSERT_TRUE(registerAltZ());
    countPresses(keys);
    EXPECT_TRUE(becomes([this] { return kind() == Kind::Granted; }));
    portal.vanish();
    EXPECT_TRUE(becomes([this] { return kind() == Kind::Line; }));
    portal.calls.clear();
    portal.appear();
    EXPECT_TRUE(becomes([this] { return kind() == Kind::Granted; }));
    EXPECT_EQ(portal.calls, (QStringList{u"Register"_s, u"Get"_s, u"CreateSession"_s, u"BindShortcuts"_s}));
    press(u"ALT+z"_s);
    EXPECT_EQ(presses, 1);
}

TEST_F(PortalTest, portalThatComesLater_isAsked)
{
    portal.vanish();
    ASSERT_TRUE(registerAltZ());
    EXPECT_TRUE(becomes([this] { return kind() == Kind::Line; }));
    portal.appear();
    EXPECT_TRUE(becomes([this] { return kind() == Kind::Granted; }));
}

TEST_F(PortalTest, busThatGoesAndComesBack_isAnotherConnection)
{
    ASSERT_TRUE(registerAltZ());
    EXPECT_TRUE(becomes([this] { return kind() == Kind::Granted; }));
    keys.setBus(QDBusConnection(u"none"_s));
    EXPECT_EQ(kind(), Kind::Line);
    portal.vanish();
    portal.appear();
    keys.setBus(connection);
    EXPECT_TRUE(becomes([this] { return kind() == Kind::Granted; }));
    EXPECT_EQ(portal.programs.size(), 2);
}

class ConfiguredTest : public GlobalHotKeysTest
{
protected:
    ConfiguredTest()
    {
        auto& defaults = UserDefaults::standardUserDefaults();
        defaults.setBoolForKey(true, TWEnableHotKeyKey);
        defaults.setObjectForKey(quint64(Z), TWTriggerCharacterKey);
        defaults.setObjectForKey(quint64(0x80000), TWTriggerModifiersKey); // Option
        defaults.setObjectForKey(quint64(3), TWMouseButtonKey);
    }
    ConfiguredHotKeys keys{session(Compositor::Sway)};
};

TEST_F(ConfiguredTest, hotKey_countsAsRegistered)
{
    const auto hotKey = keys.registerEventHotKey(Z, Option, {}, 0);
    ASSERT_TRUE(hotKey);
    EXPECT_FALSE(keys.registerEventHotKey(128, Option, {}, 0));
    EXPECT_TRUE(keys.unregisterEventHotKey(*hotKey));
    EXPECT_FALSE(keys.unregisterEventHotKey(*hotKey));
    EXPECT_EQ(keys.ownerOf(Z, Option), std::nullopt);
}

TEST_F(ConfiguredTest, theLine_isKnownToWorkOnceTheMenuWasAskedFor)
{
    const TriggerHint line = keys.hotKeyHint(Z, Option);
    EXPECT_EQ(line.kind, Kind::Line);
    EXPECT_EQ(line.place, u"~/.config/sway/config"_s);
    EXPECT_FALSE(line.works);
    int changes = 0;
    keys.addChangeObserver([&] { ++changes; });
    keys.menuWasAskedFor(By::Pointer);
    EXPECT_EQ(changes, 0) << "that is another line";
    EXPECT_FALSE(keys.hotKeyHint(Z, Option).works);
    keys.menuWasAskedFor(By::Key);
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(keys.hotKeyHint(Z, Option).works);
    EXPECT_FALSE(keys.hotKeyHint(Z, Control).works) << "that is another line";
    EXPECT_FALSE(keys.mouseButtonHint(3).works) << "it is switched off";
    keys.menuWasAskedFor(By::Key);
    EXPECT_EQ(changes, 1) << "nothing new";

    ConfiguredHotKeys later{session(Compositor::Sway)};
    EXPECT_TRUE(later.hotKeyHint(Z, Option).works) << "it is kept in the settings";
}

TEST_F(ConfiguredTest, linesOfBoth_areKnownToWork_eachWhenItHasAsked)
{
    UserDefaults::standardUserDefaults().setBoolForKey(true, TWEnableMouseButtonKey);
    keys.menuWasAskedFor(By::Pointer);
    EXPECT_FALSE(keys.hotKeyHint(Z, Option).works);
    EXPECT_TRUE(keys.mouseButtonHint(3).works);
    keys.menuWasAskedFor(By::Key);
    EXPECT_TRUE(keys.hotKeyHint(Z, Option).works);
    EXPECT_TRUE(keys.mouseButtonHint(3).works) << "still";
}

TEST_F(ConfiguredTest, lineOfOtherKeys_takesThePlaceOfTheFormer)
{
    keys.menuWasAskedFor(By::Key);
    UserDefaults::standardUserDefaults().setObjectForKey(quint64(0x40000), TWTriggerModifiersKey); // Control
    keys.menuWasAskedFor(By::Key);
    EXPECT_TRUE(keys.hotKeyHint(Z, Control).works);
    EXPECT_FALSE(keys.hotKeyHint(Z, Option).works);
}

TEST_F(ConfiguredTest, mouseButtonThatWasNotLearned_isTheFirstAtTheSide)
{
    EXPECT_EQ(keys.mouseButtonHint(25), keys.mouseButtonHint(3));
    EXPECT_TRUE(keys.mouseButtonHint(25).text.contains(u"button8"_s));
}

TEST_F(ConfiguredTest, whereNothingIsKnown_isTheBareCommand)
{
    const ConfiguredHotKeys unknown{session()};
    EXPECT_EQ(unknown.hotKeyHint(Z, Option),
              (TriggerHint{Kind::Command, u"gapplication action example.quorlane.Tarnwick pop-up"_s}));
    EXPECT_EQ(unknown.mouseButtonHint(3), (TriggerHint{Kind::Unavailable}));
}

TEST_F(GlobalHotKeysTest, theWay_isChosenByWhatIsOnTheBus)
{
    const auto made = [this] { return waylandHotKeys(connection, address(), session()); };
    EXPECT_TRUE(dynamic_cast<ConfiguredHotKeys*>(made().get()));
    const FakePortal portal{address()};
    EXPECT_TRUE(dynamic_cast<PortalHotKeys*>(made().get()));
    FakeKGlobalAccel service{address()};
    EXPECT_TRUE(dynamic_cast<KGlobalAccelHotKeys*>(made().get()));
    service.vanish();
    EXPECT_TRUE(dynamic_cast<PortalHotKeys*>(made().get()));
    EXPECT_TRUE(dynamic_cast<ConfiguredHotKeys*>(
        waylandHotKeys(QDBusConnection(u"none"_s), address(), session()).get()));
}

TEST_F(GlobalHotKeysTest, serviceWithoutItsCompositor_isNotTheWay)
{
    ASSERT_TRUE(connection.registerService(u"org.kde.kglobalaccel"_s)); // the one for an X server
    EXPECT_FALSE(KGlobalAccelHotKeys::isOffered(connection));
}

} // namespace
