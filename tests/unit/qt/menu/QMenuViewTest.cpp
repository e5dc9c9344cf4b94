// SPDX-License-Identifier: MIT
#include "platform/qt/menu/QMenuView.h"

#include "foundation/Event.h"
#include "menu/Menu.h"
#include "menu/MenuDelegate.h"
#include "menu/MenuItem.h"

#include <QAction>
#include <QApplication>
#include <QEnterEvent>
#include <QKeyEvent>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace tarnwick {
namespace {

class Recorder final : public MenuDelegate
{
public:
    QStringList calls;
    std::function<void(Menu&)> whenItNeedsUpdate;

    void menuNeedsUpdate(Menu& menu) override
    {
        calls.append(u"needs update "_s + menu.title());
        if (whenItNeedsUpdate)
            whenItNeedsUpdate(menu);
    }
    void menuWillOpen(Menu& menu) override { calls.append(u"will open "_s + menu.title()); }
    void menuWillHighlightItem(Menu& menu, MenuItem* item) override
    {
        calls.append(u"highlight "_s + menu.title() + u"/"_s + (item ? item->title() : u"none"_s));
    }
    void menuDidClose(Menu& menu) override { calls.append(u"did close "_s + menu.title()); }
};

class QMenuViewTest : public ::testing::Test
{
protected:
    std::shared_ptr<MenuItem> add(const std::shared_ptr<Menu>& menu, const QString& title,
                                  const QString& keyEquivalent = {}, quint64 mask = CommandKeyMask)
    {
        auto item = MenuItem::create(title, u"choose"_s, keyEquivalent);
        item->setKeyEquivalentModifierMask(mask);
        menu->addItem(item);
        return item;
    }

    static QStringList shownTexts(const QMenu& view)
    {
        QStringList texts;
        for (const QAction* action : view.actions())
            if (action->isVisible())
                texts.append(action->isSeparator() ? u"---"_s : action->text());
        return texts;
    }

    static void press(QMenu& view, int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QApplication::sendEvent(&view, &event);
    }

    void open() { view.openAt(QPoint(10, 10)); }

    /// Opens it where the pointer is, with `titles`.
    void openAtPointer(const QStringList& titles)
    {
        for (const QString& title : titles)
            add(root, title);
        view.setPointerAtOpening(QPoint(10, 10));
        open();
    }

    static QPoint centerOf(const QMenu& menu, int entry)
    {
        return menu.mapToGlobal(menu.actionGeometry(menu.actions().at(entry)).center());
    }

    static void enter(QMenu& menu, QPoint place)
    {
        QEnterEvent event(menu.mapFromGlobal(place), menu.mapFromGlobal(place), place);
        QApplication::sendEvent(&menu, &event);
    }

    static void mouse(QMenu& menu, QEvent::Type type, QPoint place)
    {
        const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        const auto down = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent event(type, menu.mapFromGlobal(place), place, button, down, Qt::NoModifier);
        QApplication::sendEvent(&menu, &event);
    }

    Recorder recorder;
    std::shared_ptr<Menu> root = [this] {
        auto menu = Menu::create(u"root"_s);
        menu->setDelegate(&recorder);
        menu->setAutoenablesItems(false);
        return menu;
    }();
    QMenuView view{root};
};

TEST_F(QMenuViewTest, opening_tellsTheDelegateFirstAndShowsWhatItMade)
{
    recorder.whenItNeedsUpdate = [&](Menu&) { add(root, u"late"_s); };
    open();
    EXPECT_EQ(recorder.calls, (QStringList{u"needs update root"_s, u"will open root"_s}));
    EXPECT_EQ(shownTexts(view), QStringList{u"late"_s});
    view.close();
    EXPECT_EQ(recorder.calls.last(), u"did close root"_s);
}

TEST_F(QMenuViewTest, aMenuWithoutDelegate_isJustShown)
{
    root->setDelegate(nullptr);
    add(root, u"one"_s);
    open();
    EXPECT_TRUE(view.isVisible());
    EXPECT_EQ(shownTexts(view), QStringList{u"one"_s});
}

TEST_F(QMenuViewTest, aMenuThatEnablesItsItems_doesSoBeforeItShows)
{
    root->setAutoenablesItems(true);
    add(root, u"no target"_s);
    open();
    EXPECT_FALSE(view.actions().first()->isEnabled());
}

TEST_F(QMenuViewTest, stateEnabledAndSeparators_areShown)
{
    add(root, u"checked"_s)->setState(MenuItem::State::On);
    add(root, u"disabled"_s)->setEnabled(false);
    root->addItem(MenuItem::separatorItem());
    add(root, u"plain"_s);
    open();
    EXPECT_EQ(shownTexts(view), (QStringList{u"checked"_s, u"disabled"_s, u"---"_s, u"plain"_s}));
    EXPECT_TRUE(view.actions().at(0)->isChecked());
    EXPECT_FALSE(view.actions().at(1)->isEnabled());
    EXPECT_FALSE(view.actions().at(3)->isCheckable());
}

TEST_F(QMenuViewTest, keyEquivalents_areDrawnAndDoNotAct)
{
    add(root, u"Save"_s, u"s"_s);
    open();
    EXPECT_EQ(shownTexts(view), QStringList{u"Save\tCtrl+S"_s});
    EXPECT_TRUE(view.actions().first()->shortcut().isEmpty());
}

TEST_F(QMenuViewTest, rightToLeft_titlesOfTheOtherDirectionKeepTheirOwn)
{
    add(root, u"Open..."_s);
    view.setLayoutDirection(Qt::RightToLeft);
    open();
    EXPECT_EQ(shownTexts(view), QStringList{u"\u2068Open...\u2069"_s});
}

TEST_F(QMenuViewTest, fonts_areTheMenusAndTheAttributedTitles)
{
    QFont menuFont = view.font();
    menuFont.setPointSize(7);
    QFont bold = menuFont;
    bold.setBold(true);
    root->setFont(menuFont);
    add(root, u"plain"_s);
    add(root, u"bold"_s)->setAttributedTitle(AttributedTitle{u"bold"_s, bold, {}});
    const auto submenu = Menu::create(u"sub"_s);
    add(root, u"parent"_s)->setSubmenu(submenu);
    open();
    EXPECT_EQ(view.font().pointSize(), 7);
    EXPECT_TRUE(view.actions().at(1)->font().bold());
    view.setActiveAction(view.actions().at(2));
    EXPECT_EQ(view.actions().at(2)->menu()->font().pointSize(), 7) << "a submenu inherits";
}

TEST_F(QMenuViewTest, aSubmenu_isFilledWhenItOpensAndEachTimeAnew)
{
    const auto submenu = Menu::create(u"sub"_s);
    submenu->setDelegate(&recorder);
    submenu->setAutoenablesItems(false);
    add(root, u"one"_s);
    add(root, u"parent"_s)->setSubmenu(submenu);
    int times = 0;
    recorder.whenItNeedsUpdate = [&](Menu& menu) {
        if (&menu != submenu.get())
            return;
        submenu->removeAllItems();
        add(submenu, QString::number(++times));
    };
    open();
    EXPECT_EQ(times, 0);
    QMenu* subview = view.actions().at(1)->menu();
    for (const int expected : {1, 2}) {
        view.setActiveAction(view.actions().at(1));
        EXPECT_EQ(times, expected);
        EXPECT_EQ(shownTexts(*subview), QStringList{QString::number(expected)});
        view.setActiveAction(view.actions().at(0));
        EXPECT_EQ(recorder.calls.count(u"did close sub"_s), expected);
    }
}

TEST_F(QMenuViewTest, choosing_tellsMenuAndItemOnceAlsoFromASubmenu)
{
    QList<std::pair<QString, QString>> chosen;
    QObject::connect(&view, &QMenuView::itemChosen, &view, [&](const auto& menu, const auto& item) {
        chosen.append({menu->title(), item->title()});
    });
    const auto submenu = Menu::create(u"sub"_s);
    submenu->setAutoenablesItems(false);
    add(submenu, u"leaf"_s);
    add(root, u"one"_s);
    add(root, u"parent"_s)->setSubmenu(submenu);
    open();
    press(view, Qt::Key_Down);
    press(view, Qt::Key_Return);
    EXPECT_FALSE(view.isVisible());
    open();
    view.setActiveAction(view.actions().at(1));
    QMenu* subview = view.actions().at(1)->menu();
    press(*subview, Qt::Key_Down);
    press(*subview, Qt::Key_Return);
    EXPECT_EQ(chosen, (QList<std::pair<QString, QString>>{{u"root"_s, u"one"_s}, {u"sub"_s, u"leaf"_s}}));
}

TEST_F(QMenuViewTest, theMenuMayBeEmptiedWhileItIsShown)
{
    std::weak_ptr<MenuItem> watched;
    {
        const auto item = add(root, u"one"_s);
        watched = item;
    }
    std::shared_ptr<MenuItem> chosen;
    QObject::connect(&view, &QMenuView::itemChosen, &view,
                     [&](const auto&, const auto& item) { chosen = item; });
    open();
    root->removeAllItems();
    EXPECT_FALSE(watched.expired());
    EXPECT_EQ(shownTexts(view), QStringList{u"one"_s});
    press(view, Qt::Key_Down);
    press(view, Qt::Key_Return);
    ASSERT_TRUE(chosen);
    EXPECT_EQ(chosen->title(), u"one"_s);
}

TEST_F(QMenuViewTest, theHighlight_isToldAsItMoves)
{
    add(root, u"one"_s);
    add(root, u"two"_s);
    open();
    recorder.calls.clear();
    press(view, Qt::Key_Down);
    press(view, Qt::Key_Down);
    view.setActiveAction(nullptr);
    press(view, Qt::Key_Shift);
    EXPECT_EQ(recorder.calls,
              (QStringList{u"highlight root/one"_s, u"highlight root/two"_s, u"highlight root/none"_s}));
}

TEST_F(QMenuViewTest, letters_moveTheHighlightWithoutOpeningSubmenus)
{
    const auto submenu = Menu::create(u"sub"_s);
    submenu->setDelegate(&recorder);
    add(root, u"File"_s);
    add(root, u"Edit"_s)->setSubmenu(submenu);
    add(root, u"Format"_s);
    open();
    press(view, Qt::Key_F, u"f"_s);
    EXPECT_EQ(view.activeAction(), view.actions().at(0));
    press(view, Qt::Key_F, u"f"_s);
    EXPECT_EQ(view.activeAction(), view.actions().at(2));
    press(view, Qt::Key_E, u"E"_s, Qt::ShiftModifier);
    EXPECT_EQ(view.activeAction(), view.actions().at(1));
    EXPECT_FALSE(recorder.calls.contains(u"needs update sub"_s));
    EXPECT_TRUE(view.actions().at(1)->menu()->isEnabled());
}

TEST_F(QMenuViewTest, lettersWithOtherModifiers_moveNothing)
{
    add(root, u"File"_s);
    open();
    press(view, Qt::Key_F, u"f"_s, Qt::ControlModifier);
    press(view, Qt::Key_F, u"f"_s, Qt::AltModifier);
    EXPECT_EQ(view.activeAction(), nullptr);
}

TEST_F(QMenuViewTest, alternates_areShownWhileTheirModifiersAreHeld)
{
    add(root, u"Close"_s, u"w"_s, CommandKeyMask);
    add(root, u"Close All"_s, u"w"_s, CommandKeyMask | AlternateKeyMask)->setAlternate(true);
    open();
    EXPECT_EQ(shownTexts(view), QStringList{u"Close\tCtrl+W"_s});
    view.setHeldModifiers(AlternateKeyMask);
    EXPECT_EQ(shownTexts(view), QStringList{u"Close All\tCtrl+Alt+W"_s});
    view.setHeldModifiers(ShiftKeyMask);
    EXPECT_EQ(shownTexts(view), QStringList{u"Close\tCtrl+W"_s});
}

TEST_F(QMenuViewTest, theHighlight_staysInPlaceWhenAnAlternateComesAndGoes)
{
    add(root, u"Minimize"_s, u"w"_s, CommandKeyMask | ShiftKeyMask);
    add(root, u"Close"_s, u"w"_s, CommandKeyMask);
    add(root, u"Close All"_s, u"w"_s, CommandKeyMask | AlternateKeyMask)->setAlternate(true);
    add(root, u"Last"_s);
    open();
    view.setActiveAction(view.actions().at(1));
    view.setHeldModifiers(AlternateKeyMask);
    EXPECT_EQ(view.activeAction()->text(), u"Close All\tCtrl+Alt+W"_s);
    view.setHeldModifiers(0);
    EXPECT_EQ(view.activeAction()->text(), u"Close\tCtrl+W"_s);
}

TEST_F(QMenuViewTest, alternatesOfASubmenu_followTheModifiers)
{
    const auto submenu = Menu::create(u"sub"_s);
    add(submenu, u"Close"_s, u"w"_s, CommandKeyMask);
    add(submenu, u"Close All"_s, u"w"_s, CommandKeyMask | AlternateKeyMask)->setAlternate(true);
    add(root, u"parent"_s)->setSubmenu(submenu);
    view.setHeldModifiers(AlternateKeyMask);
    open();
    view.setActiveAction(view.actions().first());
    const QMenu* subview = view.actions().first()->menu();
    EXPECT_EQ(shownTexts(*subview), QStringList{u"Close All\tCtrl+Alt+W"_s});
    view.setHeldModifiers(0);
    EXPECT_EQ(shownTexts(*subview), QStringList{u"Close\tCtrl+W"_s});
}

TEST_F(QMenuViewTest, anEmptyMenu_isShownAndClosesWithEscape)
{
    open();
    EXPECT_TRUE(view.isVisible());
    press(view, Qt::Key_Escape);
    EXPECT_FALSE(view.isVisible());
    EXPECT_EQ(recorder.calls.last(), u"did close root"_s);
}

TEST_F(QMenuViewTest, aPoint_isCoveredByTheMenuOrAnOpenSubmenu)
{
    const auto submenu = Menu::create(u"sub"_s);
    submenu->setAutoenablesItems(false);
    add(submenu, u"leaf"_s);
    add(root, u"parent"_s)->setSubmenu(submenu);
    EXPECT_FALSE(view.coversGlobal(QPoint(12, 12)));
    open();
    EXPECT_TRUE(view.coversGlobal(QPoint(12, 12)));
    EXPECT_FALSE(view.coversGlobal(QPoint(5, 5)));
    view.setActiveAction(view.actions().first());
    EXPECT_TRUE(view.coversGlobal(view.actions().first()->menu()->geometry().center()));
}

TEST_F(QMenuViewTest, thePointer_highlightsWhereOneMotionHasBroughtIt)
{
    openAtPointer({u"one"_s, u"two"_s});
    enter(view, centerOf(view, 1));
    EXPECT_EQ(view.activeAction(), view.actions().at(1));
    mouse(view, QEvent::MouseMove, centerOf(view, 0));
    EXPECT_EQ(view.activeAction(), view.actions().at(0));
}

TEST_F(QMenuViewTest, thePointer_afterOneMotion_chooses)
{
    int chosen = 0;
    QObject::connect(&view, &QMenuView::itemChosen, &view, [&] { ++chosen; });
    openAtPointer({u"one"_s, u"two"_s});
    const QPoint entry = centerOf(view, 1);
    enter(view, entry);
    mouse(view, QEvent::MouseButtonPress, entry);
    EXPECT_TRUE(view.isVisible());
    mouse(view, QEvent::MouseButtonRelease, entry);
    EXPECT_EQ(chosen, 1);
}

TEST_F(QMenuViewTest, thePointer_thatHasNotMoved_highlightsNothing_andItsClickCloses)
{
    // As at the edge of a screen, where the menu opens to the other side.
    add(root, u"one"_s);
    open();
    const QPoint entry = centerOf(view, 0);
    view.close();
    view.setPointerAtOpening(entry);
    open();
    enter(view, entry);
    mouse(view, QEvent::MouseMove, entry + QPoint(1, 0));
    EXPECT_EQ(view.activeAction(), nullptr);
    mouse(view, QEvent::MouseButtonRelease, entry + QPoint(1, 0));
    EXPECT_TRUE(view.isVisible());
    mouse(view, QEvent::MouseButtonPress, entry + QPoint(1, 0));
    EXPECT_FALSE(view.isVisible());
}

TEST_F(QMenuViewTest, aSubmenuThatOpensUnderThePointer_highlightsNothingUntilItMoves)
{
    const auto submenu = Menu::create(u"sub"_s);
    submenu->setAutoenablesItems(false);
    add(submenu, u"first"_s);
    add(submenu, u"second"_s);
    add(root, u"parent"_s)->setSubmenu(submenu);
    openAtPointer({});
    enter(view, centerOf(view, 0));
    view.setActiveAction(view.actions().first());
    QMenu& opened = *view.actions().first()->menu();
    ASSERT_TRUE(opened.isVisible());
    opened.move(centerOf(view, 0) - QPoint(20, 10));
    enter(opened, centerOf(view, 0));
    EXPECT_EQ(opened.activeAction(), nullptr);
    enter(opened, centerOf(opened, 1));
    EXPECT_EQ(opened.activeAction(), opened.actions().at(1));
}

} // namespace
} // namespace tarnwick
