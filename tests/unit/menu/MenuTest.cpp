// SPDX-License-Identifier: MIT
#include "menu/Menu.h"

#include "menu/MenuItem.h"

#include <QFont>
#include <QStringList>
#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

class OneActionTarget final : public ActionTarget
{
public:
    [[nodiscard]] bool respondsTo(const QString& action) const override { return action == u"act"; }
    void perform(const QString& /*action*/, ActionSender* /*sender*/) override {}
};

std::shared_ptr<Menu> menuOf(const QStringList& titles)
{
    auto menu = Menu::create(u"Menu"_s);
    for (const QString& title : titles)
        menu->addItem(title.isEmpty() ? MenuItem::separatorItem() : MenuItem::create(title));
    return menu;
}

QStringList titlesOf(const Menu& menu)
{
    QStringList titles;
    for (const auto& item : menu.itemArray())
        titles.append(item->title());
    return titles;
}

} // namespace

TEST(Menu, newMenu_isEmptyAndEnablesItsItems)
{
    const auto menu = Menu::create(u"Title"_s);
    EXPECT_EQ(menu->title(), u"Title"_s);
    EXPECT_EQ(menu->numberOfItems(), 0);
    EXPECT_TRUE(menu->autoenablesItems());
    EXPECT_EQ(menu->delegate(), nullptr);
    EXPECT_EQ(menu->supermenu(), nullptr);
    EXPECT_FALSE(menu->font());
}

TEST(Menu, itemWithTitle_findsTheFirstMatch_separatorsIncluded)
{
    const auto menu = menuOf({u"A"_s, u""_s, u"B"_s, u""_s, u"B"_s});
    EXPECT_EQ(menu->itemWithTitle(u"B"_s), menu->itemAtIndex(2));
    EXPECT_EQ(menu->itemWithTitle(u""_s), menu->itemAtIndex(1));
    EXPECT_EQ(menu->itemWithTitle(u"b"_s), nullptr) << "titles are compared exactly";
}

TEST(Menu, indexOutOfRange_findsNothingAndChangesNothing)
{
    const auto menu = menuOf({u"A"_s, u"B"_s});
    for (const int index : {-1, 2, 3, -2147483647, 2147483647}) {
        EXPECT_EQ(menu->itemAtIndex(index), nullptr);
        menu->removeItemAtIndex(index);
    }
    menu->insertItemAtIndex(MenuItem::create(u"C"_s), -1);
    menu->insertItemAtIndex(MenuItem::create(u"C"_s), 3);
    menu->addItem(nullptr);
    menu->removeItem(nullptr);
    menu->removeItem(MenuItem::create(u"A"_s));
    EXPECT_EQ(titlesOf(*menu), (QStringList{u"A"_s, u"B"_s}));
    EXPECT_EQ(menu->indexOfItem(nullptr), -1);
    EXPECT_EQ(menu->indexOfItemWithSubmenu(nullptr), -1) << "items without a submenu do not match";
}

TEST(Menu, insertItemAtIndex_putsItBeforeTheOneThere)
{
    const auto menu = menuOf({u"A"_s, u"B"_s});
    menu->insertItemAtIndex(MenuItem::create(u"first"_s), 0);
    menu->insertItemAtIndex(MenuItem::create(u"last"_s), 3);
    EXPECT_EQ(titlesOf(*menu), (QStringList{u"first"_s, u"A"_s, u"B"_s, u"last"_s}));
    EXPECT_EQ(menu->indexOfItem(menu->itemAtIndex(2).get()), 2);
    EXPECT_EQ(menu->itemAtIndex(0)->menu(), menu.get());
}

TEST(Menu, addItem_thatIsInAMenu_isIgnored)
{
    const auto menu = menuOf({u"A"_s});
    const auto other = menuOf({});
    other->addItem(menu->itemAtIndex(0));
    menu->addItem(menu->itemAtIndex(0));
    EXPECT_EQ(other->numberOfItems(), 0);
    EXPECT_EQ(menu->numberOfItems(), 1);
    const auto item = menu->itemAtIndex(0);
    menu->removeItem(item);
    EXPECT_EQ(item->menu(), nullptr);
    other->addItem(item);
    EXPECT_EQ(item->menu(), other.get());
}

TEST(Menu, submenu_knowsItsSupermenuWhileItsItemIsThere)
{
    const auto menu = menuOf({u"A"_s, u"B"_s, u"C"_s});
    const auto below = menuOf({u"deep"_s});
    EXPECT_EQ(below->itemAtIndex(0)->parentItem(), nullptr);
    menu->itemAtIndex(1)->setSubmenu(below);
    EXPECT_EQ(below->supermenu(), menu.get());
    EXPECT_EQ(menu->indexOfItemWithSubmenu(below.get()), 1);
    EXPECT_EQ(below->itemAtIndex(0)->parentItem(), menu->itemAtIndex(1));
    EXPECT_EQ(menu->itemAtIndex(1)->parentItem(), nullptr);

    const auto item = menu->itemAtIndex(1);
    menu->removeItemAtIndex(1);
    EXPECT_EQ(below->supermenu(), nullptr);
    EXPECT_EQ(item->submenu(), below) << "the item keeps it";
    menu->addItem(item);
    EXPECT_EQ(below->supermenu(), menu.get());
    menu->removeAllItems();
    EXPECT_EQ(below->supermenu(), nullptr);
    EXPECT_EQ(item->menu(), nullptr);
}

TEST(Menu, submenuOfAnItemInNoMenu_hasNoSupermenuYet)
{
    const auto item = MenuItem::create(u"A"_s);
    const auto below = menuOf({});
    item->setSubmenu(below);
    EXPECT_EQ(below->supermenu(), nullptr);
    const auto menu = menuOf({});
    menu->addItem(item);
    EXPECT_EQ(below->supermenu(), menu.get());
}

TEST(Menu, setSubmenu_replacesTheEarlierOne)
{
    const auto menu = menuOf({u"A"_s});
    const auto earlier = menuOf({});
    const auto later = menuOf({});
    menu->itemAtIndex(0)->setSubmenu(earlier);
    menu->itemAtIndex(0)->setSubmenu(later);
    EXPECT_EQ(earlier->supermenu(), nullptr);
    EXPECT_EQ(later->supermenu(), menu.get());
    menu->itemAtIndex(0)->setSubmenu(nullptr);
    EXPECT_EQ(later->supermenu(), nullptr);
    EXPECT_FALSE(menu->itemAtIndex(0)->hasSubmenu());
}

TEST(Menu, setSubmenu_takesItFromTheItemThatHadIt)
{
    const auto menu = menuOf({u"A"_s, u"B"_s, u"C"_s});
    const auto below = menuOf({});
    menu->itemAtIndex(1)->setSubmenu(below);
    menu->itemAtIndex(0)->setSubmenu(below);
    EXPECT_FALSE(menu->itemAtIndex(1)->hasSubmenu());
    EXPECT_EQ(menu->indexOfItemWithSubmenu(below.get()), 0);

    const auto stale = menu->itemAtIndex(0);
    menu->removeItem(stale);
    menu->itemAtIndex(1)->setSubmenu(below);
    stale->setSubmenu(nullptr);
    EXPECT_EQ(below->supermenu(), menu.get()) << "an item out of the menu no longer decides";
}

TEST(Menu, setSubmenu_refusesAMenuThatHoldsTheItem)
{
    const auto menu = menuOf({u"A"_s});
    const auto below = menuOf({u"B"_s});
    menu->itemAtIndex(0)->setSubmenu(menu);
    EXPECT_FALSE(menu->itemAtIndex(0)->hasSubmenu());
    menu->itemAtIndex(0)->setSubmenu(below);
    below->itemAtIndex(0)->setSubmenu(menu);
    EXPECT_FALSE(below->itemAtIndex(0)->hasSubmenu());

    const auto loose = MenuItem::create(u"loose"_s);
    loose->setSubmenu(menu);
    below->addItem(loose);
    EXPECT_EQ(below->numberOfItems(), 1);
}

TEST(Menu, supermenuThatGoesAway_leavesTheSubmenuAlone)
{
    const auto below = menuOf({u"deep"_s});
    {
        const auto menu = menuOf({u"A"_s});
        menu->itemAtIndex(0)->setSubmenu(below);
    }
    EXPECT_EQ(below->supermenu(), nullptr);
    EXPECT_EQ(below->itemAtIndex(0)->parentItem(), nullptr);
}

TEST(Menu, update_enablesWhatItsTargetRespondsTo)
{
    const auto menu =
        menuOf({u"responds"_s, u"other action"_s, u"no target"_s, u"off with submenu"_s, u""_s});
    const auto target = std::make_shared<OneActionTarget>();
    menu->itemAtIndex(0)->setTarget(target);
    menu->itemAtIndex(0)->setAction(u"act"_s);
    menu->itemAtIndex(0)->setEnabled(false);
    menu->itemAtIndex(1)->setTarget(target);
    menu->itemAtIndex(1)->setAction(u"other"_s);
    menu->itemAtIndex(2)->setAction(u"act"_s);
    menu->itemAtIndex(3)->setSubmenu(menuOf({}));
    menu->itemAtIndex(3)->setEnabled(false);
    const auto enabled = [&menu] {
        QList<bool> states;
        for (const auto& item : menu->itemArray())
            states.append(item->isEnabled());
        return states;
    };
    menu->setAutoenablesItems(false);
    menu->update();
    EXPECT_EQ(enabled(), (QList<bool>{false, true, true, false, false})) << "switched off, nothing changes";
    menu->setAutoenablesItems(true);
    menu->update();
    EXPECT_EQ(enabled(), (QList<bool>{true, false, false, false, false}));
    menu->itemAtIndex(3)->setEnabled(true);
    menu->update();
    EXPECT_TRUE(menu->itemAtIndex(3)->isEnabled()) << "an item with a submenu stays as it is";
}

TEST(Menu, font_isInheritedFromTheNearestSupermenuThatHasOne)
{
    const auto menu = menuOf({u"A"_s});
    const auto below = menuOf({u"B"_s});
    const auto deepest = menuOf({});
    menu->itemAtIndex(0)->setSubmenu(below);
    below->itemAtIndex(0)->setSubmenu(deepest);
    EXPECT_FALSE(deepest->font());
    menu->setFont(QFont(u"Outer"_s, 11));
    EXPECT_EQ(deepest->font()->family(), u"Outer"_s);
    below->setFont(QFont(u"Inner"_s, 9));
    EXPECT_EQ(deepest->font()->family(), u"Inner"_s);
    EXPECT_EQ(menu->font()->family(), u"Outer"_s);
}

TEST(MenuItem, newItem_hasTheNativeDefaults)
{
    const auto item = MenuItem::create(u"Title"_s);
    EXPECT_EQ(item->title(), u"Title"_s);
    EXPECT_EQ(item->keyEquivalent(), u""_s);
    EXPECT_EQ(item->keyEquivalentModifierMask(), 0x100000U);
    EXPECT_EQ(item->state(), MenuItem::State::Off);
    EXPECT_TRUE(item->isEnabled());
    EXPECT_FALSE(item->isAlternate());
    EXPECT_FALSE(item->isSeparatorItem());
    EXPECT_FALSE(item->attributedTitle());
    EXPECT_TRUE(item->action().isEmpty());
    EXPECT_EQ(item->target(), nullptr);
    EXPECT_EQ(MenuItem::create(u"T"_s, u"act"_s, u"k"_s)->action(), u"act"_s);
    EXPECT_EQ(MenuItem::create(u"T"_s, u"act"_s, u"k"_s)->keyEquivalent(), u"k"_s);
}

TEST(MenuItem, separator_hasAnEmptyTitleAndIsDisabled)
{
    const auto item = MenuItem::separatorItem();
    EXPECT_TRUE(item->isSeparatorItem());
    EXPECT_EQ(item->title(), u""_s);
    EXPECT_FALSE(item->isEnabled());
}

TEST(MenuItem, copy_sharesTargetAndAction_andIsInNoMenu)
{
    const auto menu = menuOf({u"A"_s});
    const auto item = menu->itemAtIndex(0);
    item->setTarget(std::make_shared<OneActionTarget>());
    item->setAction(u"act"_s);
    item->setKeyEquivalent(u"k"_s);
    item->setKeyEquivalentModifierMask(0x20000);
    item->setState(MenuItem::State::On);
    item->setEnabled(false);
    item->setAlternate(true);
    item->setAttributedTitle(AttributedTitle{u"A"_s, std::nullopt, -1.0});
    item->setSubmenu(menuOf({}));

    const auto copy = item->copy();
    EXPECT_EQ(copy->target(), item->target());
    EXPECT_EQ(copy->action(), u"act"_s);
    EXPECT_EQ(copy->title(), u"A"_s);
    EXPECT_EQ(copy->keyEquivalent(), u"k"_s);
    EXPECT_EQ(copy->keyEquivalentModifierMask(), 0x20000U);
    EXPECT_EQ(copy->state(), MenuItem::State::On);
    EXPECT_FALSE(copy->isEnabled());
    EXPECT_TRUE(copy->isAlternate());
    EXPECT_EQ(copy->attributedTitle(), item->attributedTitle());
    EXPECT_EQ(copy->menu(), nullptr);
    EXPECT_FALSE(copy->hasSubmenu());
    EXPECT_TRUE(item->hasSubmenu()) << "the submenu stays where it is";
    EXPECT_TRUE(MenuItem::separatorItem()->copy()->isSeparatorItem());
}
