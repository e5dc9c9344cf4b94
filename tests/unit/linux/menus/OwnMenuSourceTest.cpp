// SPDX-License-Identifier: MIT
#include "platform/linux/menus/OwnMenuSource.h"

#include "menu/Menu.h"
#include "tests/fakes/FakeApplication.h"
#include "tests/fakes/SharedPorts.h"

#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

class CountingTarget final : public ActionTarget
{
public:
    int performed = 0;
    [[nodiscard]] bool respondsTo(const QString& action) const override { return action == "go"_L1; }
    void perform(const QString& /*action*/, ActionSender* /*sender*/) override { ++performed; }
};

class OwnMenuSourceTest : public ::testing::Test
{
protected:
    std::shared_ptr<MenuItem> add(Menu& menu, const QString& title, const QString& key = {}, quint64 mask = 0)
    {
        auto item = MenuItem::create(title, u"go"_s, key);
        item->setKeyEquivalentModifierMask(mask);
        item->setTarget(target);
        menu.addItem(item);
        return item;
    }
    std::shared_ptr<Menu> addMenu(const QString& title)
    {
        auto menu = Menu::create(title);
        add(*application.menuBar, title)->setSubmenu(menu);
        return menu;
    }
    QList<MenuRow> bar() { return source.readBar(OwnMenuSource::bar()).value_or(QList<MenuRow>()); }
    QList<MenuRow> menu(qsizetype index)
    {
        return source.readMenu(bar().value(index).contents).value_or(QList<MenuRow>());
    }

    FakeApplication application;
    SharedPorts sharedPorts{application};
    std::shared_ptr<CountingTarget> target = std::make_shared<CountingTarget>();
    OwnMenuSource source;
};

} // namespace

TEST_F(OwnMenuSourceTest, withoutAMainMenu_thereIsNoBar)
{
    EXPECT_FALSE(OwnMenuSource::hasBar());
    EXPECT_FALSE(source.readBar(OwnMenuSource::bar()));
    application.menuBar = Menu::create({});
    EXPECT_TRUE(OwnMenuSource::hasBar());
}

TEST_F(OwnMenuSourceTest, noEntryOfTheBar_isTitledAsTheMirrorsOwn)
{
    application.menuBar = Menu::create({});
    addMenu(u"Tarnwick"_s);
    addMenu(u"Edit"_s);
    EXPECT_EQ(bar().value(0).title, u"Application"_s);
    EXPECT_EQ(bar().value(1).title, u"Edit"_s);
    EXPECT_EQ(bar().value(1).kind, MenuRow::Kind::Holder);
}

TEST_F(OwnMenuSourceTest, items_areInTheNormalForm)
{
    application.menuBar = Menu::create({});
    const auto file = addMenu(u"File"_s);
    add(*file, u"Close"_s, u"w"_s, ControlKeyMask);
    file->addItem(MenuItem::separatorItem());
    add(*file, u"Marked"_s)->setState(MenuItem::State::On);
    add(*file, u"Deaf"_s)->setAction(u"other"_s);
    add(*file, u"Rename"_s, u"\uF705"_s, CommandKeyMask | ControlKeyMask);
    const auto inner = Menu::create({});
    add(*inner, u"Deep"_s);
    add(*file, u"More"_s)->setSubmenu(inner);

    const QList<MenuRow> rows = menu(0);
    ASSERT_EQ(rows.size(), 6);
    EXPECT_EQ(rows[0].title, u"Close"_s);
    EXPECT_TRUE(rows[0].enabled);
    EXPECT_EQ(rows[0].shortcut, (MenuShortcut{u"W"_s, {}, 0})) << "Control stands as Command";
    EXPECT_EQ(rows[1].kind, MenuRow::Kind::Separator);
    EXPECT_TRUE(rows[2].checked);
    EXPECT_FALSE(rows[3].enabled) << "its target does not respond";
    EXPECT_EQ(rows[4].shortcut, (MenuShortcut{{}, 112, 4})) << "the logo key stands as Control";
    EXPECT_EQ(rows[5].kind, MenuRow::Kind::Holder);
    const auto deep = source.readMenu(rows[5].contents);
    ASSERT_TRUE(deep);
    EXPECT_EQ(deep->value(0).title, u"Deep"_s);
}

TEST_F(OwnMenuSourceTest, press_performsTheAction)
{
    application.menuBar = Menu::create({});
    const auto file = addMenu(u"File"_s);
    add(*file, u"Close"_s);
    const MenuRow row = menu(0).value(0);
    EXPECT_TRUE(source.press(row));
    EXPECT_EQ(target->performed, 1);

    file->itemAtIndex(0)->setTitle(u"Delete"_s);
    EXPECT_FALSE(source.press(row)) << "another item has taken its place";
    file->removeAllItems();
    EXPECT_FALSE(source.press(row));
    application.menuBar.reset();
    EXPECT_FALSE(source.press(row));
    EXPECT_EQ(target->performed, 1);
}
