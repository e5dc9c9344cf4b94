// SPDX-License-Identifier: MIT
#include "platform/macos/session/MacApplication.h"

#include "foundation/ApplicationDelegate.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "platform/macos/hotkeys/MacKeyboard.h"
#include "platform/macos/hotkeys/TISKeyboardLayout.h"
#include "platform/macos/session/ReopenEvent.h"
#include "platform/macos/system/MacBundle.h"
#include "platform/qt/menu/MenuTracking.h"
#include "tests/macos/MacTest.h"

#include <QCoreApplication>
#include <QDialog>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace tarnwick {

class MacApplicationTest : public MacTest
{
protected:
    TISKeyboardLayout layout;
    MacApplication application{makeMacEventConverter(layout)};
};

TEST_F(MacApplicationTest, bundlePath_isTheBundlesOrThatOfTheProgramWithoutOne)
{
    EXPECT_EQ(application.bundlePath(), u"/Applications/Tarnwick.app"_s);
    mac.bundlePath = u"/usr/local/bin"_s;
    EXPECT_EQ(application.bundlePath(), QCoreApplication::applicationFilePath());
    mac.fail(u"CFBundleCopyBundleURL"_s);
    EXPECT_EQ(application.bundlePath(), QCoreApplication::applicationFilePath());
}

TEST_F(MacApplicationTest, resources_areTheBundlesOwn)
{
    mac.bundleResources = {u"TarnwickMenuBarIcon.png"_s};
    EXPECT_EQ(application.pathForResourceOfType(u"TarnwickMenuBarIcon"_s, u"png"_s),
              u"/Applications/Tarnwick.app/Contents/Resources/TarnwickMenuBarIcon.png"_s);
    EXPECT_EQ(application.pathForResourceOfType(u"Missing"_s, u"png"_s), QString());
    EXPECT_EQ(mac.callsOf(u"CFBundleCopyResourceURL"_s).first(),
              (QVariantList{u"CFBundleGetMainBundle"_s, u"TarnwickMenuBarIcon"_s, u"png"_s, QVariant()}));
}

TEST_F(MacApplicationTest, activation_reachesTheSystemAsItIs)
{
    mac.activate(100);
    application.activateIgnoringOtherApps(false);
    EXPECT_EQ(mac.activeProcess(), 100);
    application.activateIgnoringOtherApps(true);
    EXPECT_EQ(mac.activeProcess(), QCoreApplication::applicationPid());
    EXPECT_EQ(mac.callsOf(u"activateIgnoringOtherApps"_s), (QList<QVariantList>{{false}, {true}}));
}

TEST_F(MacApplicationTest, windowThatIsShownOrRaised_comesInFrontOfAllApplications)
{
    mac.activate(100);
    QWidget window;
    window.setWindowTitle(u"About Tarnwick"_s);
    QWidget child(&window);
    window.show();
    EXPECT_EQ(mac.callsOf(u"orderFrontRegardless"_s), (QList<QVariantList>{{u"About Tarnwick"_s}}));
    window.raise();
    EXPECT_EQ(mac.callsOf(u"orderFrontRegardless"_s).size(), 2);
    child.raise();
    window.hide();
    window.raise();
    EXPECT_EQ(mac.callsOf(u"orderFrontRegardless"_s).size(), 2) << "neither controls nor hidden windows";
    QDialog dialog;
    dialog.show();
    EXPECT_EQ(mac.callsOf(u"orderFrontRegardless"_s).size(), 3) << "dialogs too";
    EXPECT_EQ(mac.activeProcess(), 100) << "and takes neither activation nor keyboard from it";
}

TEST_F(MacApplicationTest, termination_endsAnOpenAlertOrMenuUnlessItIsRefused)
{
    class Refusing final : public ApplicationDelegate
    {
    public:
        bool agrees = false;
        [[nodiscard]] bool applicationShouldTerminate() override { return agrees; }
        [[nodiscard]] bool respondsTo(const QString& /*action*/) const override { return false; }
        void perform(const QString& /*action*/, ActionSender* /*sender*/) override {}
    } delegate;
    application.setDelegate(&delegate);
    int cancels = 0;
    const auto cancelling =
        QObject::connect(&MenuTracking::shared(), &MenuTracking::cancelRequested, [&cancels] { ++cancels; });
    MenuTracking::shared().begin();
    application.terminate(nullptr);
    EXPECT_TRUE(mac.callsOf(u"abortModal"_s).isEmpty());
    EXPECT_EQ(cancels, 0);
    delegate.agrees = true;
    application.terminate(nullptr);
    EXPECT_TRUE(application.terminating());
    EXPECT_EQ(mac.callsOf(u"abortModal"_s).size(), 1);
    EXPECT_EQ(cancels, 1);
    MenuTracking::shared().end();
    QObject::disconnect(cancelling);
    application.setDelegate(nullptr);
}

TEST_F(MacApplicationTest, mainMenusShortcuts_areHeldWithCommand)
{
    int shortcuts = 0;
    for (const auto& holder : application.mainMenu()->itemArray()) {
        for (const auto& item : holder->submenu()->itemArray()) {
            if (item->keyEquivalent().isEmpty())
                continue;
            ++shortcuts;
            EXPECT_EQ(item->keyEquivalentModifierMask() & ~quint64(ShiftKeyMask), quint64(CommandKeyMask))
                << item->title().toStdString();
        }
    }
    EXPECT_GT(shortcuts, 5);
}

TEST_F(MacApplicationTest, keys_areDescribedByTheSystemsCodesAndTheLayoutsCharacters)
{
    mac.inputSource->characters = {{{6, 0}, u"z"_s}, {{6, 2}, u"Z"_s}};
    QtEventConverter converter = makeMacEventConverter(layout);
    const auto plain = converter.convert(
        QKeyEvent(QEvent::KeyPress, Qt::Key_Z, Qt::MetaModifier | Qt::AltModifier, 0, 6, 0, u"Ω"_s));
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->keyCode, 6);
    EXPECT_EQ(plain->modifierFlags, quint64(CommandKeyMask | AlternateKeyMask));
    EXPECT_EQ(plain->charactersIgnoringModifiers, u"z"_s);
    // Display, no dead keys; the translation counts modifiers shifted right by eight.
    EXPECT_EQ(mac.callsOf(u"UCKeyTranslate"_s).first(),
              (QVariantList{true, 6, 3, 0, 44, 1, 0, 4, true, true}));
    const auto shifted =
        converter.convert(QKeyEvent(QEvent::KeyPress, Qt::Key_Z, Qt::ShiftModifier, 0, 6, 0, u"Z"_s));
    ASSERT_TRUE(shifted);
    EXPECT_EQ(shifted->charactersIgnoringModifiers, u"Z"_s);
    EXPECT_EQ(mac.callsOf(u"UCKeyTranslate"_s).last(),
              (QVariantList{true, 6, 3, 2, 44, 1, 0, 4, true, true}));
    const auto outside =
        converter.convert(QKeyEvent(QEvent::KeyPress, Qt::Key_Z, Qt::NoModifier, 0, 300, 0, u"z"_s));
    ASSERT_TRUE(outside);
    EXPECT_EQ(outside->keyCode, QtEventConverter::NoKeyCode);
    mac.inputSource.reset();
    const auto withoutLayout =
        converter.convert(QKeyEvent(QEvent::KeyPress, Qt::Key_Z, Qt::NoModifier, 0, 6, 0, u"z"_s));
    ASSERT_TRUE(withoutLayout);
    EXPECT_EQ(withoutLayout->characters, u"z"_s);
}

TEST_F(MacApplicationTest, reopening_isAskedOfTheProgramAndMayBeLeftToTheSystem)
{
    ReopenEvent event;
    bool goOn = false;
    int asked = 0;
    EXPECT_TRUE(event.install([&] {
        ++asked;
        return goOn;
    }));
    // Class "aevt", event "rapp", a handler with its context, of this application.
    EXPECT_EQ(mac.callsOf(u"AEInstallEventHandler"_s),
              (QList<QVariantList>{{0x61657674u, 0x72617070u, true, true, false}}));
    EXPECT_EQ(mac.reopen(), 0);
    goOn = true;
    EXPECT_EQ(mac.reopen(), -1708);
    EXPECT_EQ(asked, 2);
    mac.fail(u"AEInstallEventHandler"_s, -50);
    EXPECT_FALSE(ReopenEvent().install([] { return false; }));
}

} // namespace tarnwick
