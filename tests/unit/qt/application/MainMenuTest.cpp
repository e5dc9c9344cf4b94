// SPDX-License-Identifier: MIT
#include "platform/qt/application/MainMenu.h"

#include "foundation/ApplicationDelegate.h"
#include "menu/Menu.h"
#include "tests/fakes/FakeApplication.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>
#include <QTranslator>
#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

class RecordingDelegate final : public ApplicationDelegate
{
public:
    QStringList performed;
    [[nodiscard]] bool respondsTo(const QString& action) const override { return action != u"unknown"; }
    void perform(const QString& action, ActionSender* /*sender*/) override { performed.append(action); }
};

class LoudTranslator final : public QTranslator
{
public:
    [[nodiscard]] QString translate(const char* context, const char* text, const char* /*disambiguation*/,
                                    int /*count*/) const override
    {
        return qstrcmp(context, "MainMenu") == 0 ? QString::fromLatin1(text).toUpper() : QString();
    }
    [[nodiscard]] bool isEmpty() const override { return false; }
};

class MainMenuTest : public ::testing::Test
{
protected:
    std::shared_ptr<MenuItem> item(int menu, const QString& title) const
    {
        const auto submenu = bar->itemAtIndex(menu)->submenu();
        submenu->update();
        return submenu->itemWithTitle(title);
    }

    bool press(const QString& characters, quint64 modifiers) const
    {
        Event event;
        event.type = Event::Type::KeyDown;
        event.charactersIgnoringModifiers = characters;
        event.modifierFlags = modifiers;
        return performKeyEquivalent(*bar, event);
    }

    static void activate(QWidget& window)
    {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    FakeApplication application;
    RecordingDelegate delegate;
    std::shared_ptr<Menu> bar = makeMainMenu(application, ControlKeyMask);
};

TEST_F(MainMenuTest, entries_areThreeMenus_andNoneIsNamedAsTheProgram)
{
    QStringList titles;
    for (const auto& entry : bar->itemArray()) {
        titles.append(entry->title());
        EXPECT_TRUE(entry->hasSubmenu());
    }
    EXPECT_EQ(titles, (QStringList{u"Application"_s, u"Edit"_s, u"Window"_s}));
}

TEST_F(MainMenuTest, titles_areInTheLanguageOfTheUser)
{
    LoudTranslator translator;
    QCoreApplication::installTranslator(&translator);
    bar = makeMainMenu(application, ControlKeyMask);
    QCoreApplication::removeTranslator(&translator);
    EXPECT_EQ(bar->itemAtIndex(1)->title(), u"EDIT"_s);
    EXPECT_NE(item(1, u"SELECT ALL"_s), nullptr);
    EXPECT_NE(item(0, u"QUIT"_s), nullptr);
}

TEST_F(MainMenuTest, masks_namePhysicalModifiers)
{
    EXPECT_EQ(item(0, u"Quit"_s)->keyEquivalentModifierMask(), ControlKeyMask);
    EXPECT_EQ(item(0, u"Quit"_s)->keyEquivalent(), u"q"_s);
    EXPECT_EQ(item(1, u"Redo"_s)->keyEquivalentModifierMask(), ControlKeyMask | ShiftKeyMask);
}

TEST_F(MainMenuTest, commandsOfTheDelegate_areEnabledOnceThereIsOne)
{
    EXPECT_FALSE(item(0, u"Preferences..."_s)->isEnabled());
    application.setDelegate(&delegate);
    const auto preferences = item(0, u"Preferences..."_s);
    EXPECT_TRUE(preferences->isEnabled());
    preferences->target()->perform(preferences->action(), preferences.get());
    const auto about = item(0, u"About Tarnwick..."_s);
    about->target()->perform(about->action(), about.get());
    EXPECT_EQ(delegate.performed, (QStringList{u"showPreferencePanel"_s, u"displayAboutPanel"_s}));
}

TEST_F(MainMenuTest, quit_terminatesTheApplication)
{
    EXPECT_TRUE(press(u"q"_s, ControlKeyMask));
    EXPECT_TRUE(application.terminating());
}

TEST_F(MainMenuTest, editing_actsOnTheWidgetWithTheFocus)
{
    EXPECT_FALSE(item(1, u"Copy"_s)->isEnabled()) << "without a text there is nothing to copy";
    QLineEdit edit(u"some text"_s);
    edit.show();
    edit.setFocus();
    activate(edit);
    ASSERT_EQ(QApplication::focusWidget(), &edit);
    ASSERT_TRUE(item(1, u"Select All"_s)->isEnabled());
    const auto all = item(1, u"Select All"_s);
    all->target()->perform(all->action(), all.get());
    EXPECT_EQ(edit.selectedText(), u"some text"_s);
    const auto cut = item(1, u"Cut"_s);
    cut->target()->perform(cut->action(), cut.get());
    EXPECT_EQ(edit.text(), u""_s);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"some text"_s);
}

TEST_F(MainMenuTest, window_isClosedByItsKeyEquivalent)
{
    QWidget window;
    window.show();
    activate(window);
    EXPECT_TRUE(press(u"W"_s, ControlKeyMask)) << "Caps Lock does not matter";
    EXPECT_FALSE(window.isVisible());
}

TEST_F(MainMenuTest, otherKeys_areNoKeyEquivalents)
{
    EXPECT_FALSE(press(u"q"_s, ControlKeyMask | ShiftKeyMask));
    EXPECT_FALSE(press(u"q"_s, CommandKeyMask));
    EXPECT_FALSE(press(u""_s, 0));
    EXPECT_FALSE(press(u","_s, ControlKeyMask)) << "a disabled item neither";
}

} // namespace
