// SPDX-License-Identifier: MIT
// The menu at the pointer as AppKit shows it.
#include "menu/Menu.h"
#include "menu/MenuDelegate.h"
#include "menu/MenuItem.h"
#include "platform/macos/menu/AppKitMenus.h"
#include "tests/macos/appkit/AppKitTest.h"

#include <QFont>

using namespace Qt::StringLiterals;

namespace tarnwick {
namespace {

using appkit::ShownItem;
using appkit::ShownMenu;

class Target final : public ActionTarget
{
public:
    [[nodiscard]] bool respondsTo(const QString& action) const override { return action == u"press"_s; }
    void perform(const QString& /*action*/, ActionSender* /*sender*/) override {}
};

/// Writes down what it is told, and does something of the test's when its menu is filled.
class Delegate final : public MenuDelegate
{
public:
    QStringList told;
    std::function<void(Menu&)> onUpdate;
    std::optional<Event> event;
    bool hasKey = false;

    void menuNeedsUpdate(Menu& menu) override
    {
        told.append(u"update "_s + menu.title());
        if (onUpdate)
            onUpdate(menu);
    }
    void menuWillOpen(Menu& menu) override { told.append(u"open "_s + menu.title()); }
    void menuDidClose(Menu& menu) override { told.append(u"close "_s + menu.title()); }
    void menuWillHighlightItem(Menu& menu, MenuItem* item) override
    {
        told.append(u"highlight %1 %2"_s.arg(menu.title(), item ? item->title() : u"nothing"_s));
    }
    bool menuHasKeyEquivalentForEventTargetAction(Menu& /*menu*/, const Event& of, ActionTarget*& /*target*/,
                                                  QString& /*action*/) override
    {
        event = of;
        return hasKey;
    }
};

class NativeMenuTest : public AppKitTest
{
protected:
    std::shared_ptr<MenuItem> add(Menu& menu, const QString& title)
    {
        auto item = MenuItem::create(title, u"press"_s);
        item->setTarget(target);
        menu.addItem(item);
        return item;
    }

    void popUp(const std::function<void(ShownMenu)>& whileOpen,
               const std::shared_ptr<MenuItem>& item = nullptr)
    {
        system().whileOpen = whileOpen;
        menus.popUp(root, item, {100, 700}, [this](const auto& menu, const auto& choice) {
            chosen.append(menu->title() + u'/' + choice->title());
        });
    }

    [[nodiscard]] QList<ShownItem> shown()
    {
        QList<ShownItem> items;
        popUp([&items](ShownMenu menu) { items = menu.items(); });
        return items;
    }

    static QStringList titles(const QList<ShownItem>& items)
    {
        QStringList titles;
        for (const ShownItem& item : items)
            titles.append(item.separator ? u"-"_s : item.title);
        return titles;
    }

    std::shared_ptr<Menu> root = Menu::create(u"Fennrick"_s);
    std::shared_ptr<Target> target = std::make_shared<Target>();
    AppKitMenus menus;
    QStringList chosen;
};

TEST_F(NativeMenuTest, everyItem_isShownAsItIs)
{
    root->setAutoenablesItems(false);
    const auto open = add(*root, u"Open…"_s);
    open->setKeyEquivalent(u"o"_s);
    open->setKeyEquivalentModifierMask(0x120000);
    const auto marked = add(*root, u"Wrap"_s);
    marked->setState(MenuItem::State::On);
    marked->setEnabled(false);
    root->addItem(MenuItem::separatorItem());
    add(*root, u"Close"_s);
    const auto alternate = add(*root, u"Close All"_s);
    alternate->setAlternate(true);
    alternate->setKeyEquivalentModifierMask(0x80000);
    const auto items = shown();
    ASSERT_EQ(titles(items), (QStringList{u"Open…"_s, u"Wrap"_s, u"-"_s, u"Close"_s, u"Close All"_s}));
    EXPECT_EQ(items[0].key, u"o"_s);
    EXPECT_EQ(items[0].mask, 0x120000U);
    EXPECT_TRUE(items[0].enabled);
    EXPECT_EQ(items[0].state, 0);
    EXPECT_FALSE(items[0].keysMayMove) << "it is the application's, whatever the layout";
    EXPECT_EQ(items[1].state, 1);
    EXPECT_FALSE(items[1].enabled);
    EXPECT_FALSE(items[3].alternate);
    EXPECT_TRUE(items[4].alternate);
    EXPECT_EQ(items[4].mask, 0x80000U);
    for (qsizetype index = 0; index < items.size(); ++index)
        EXPECT_EQ(items[index].tag, index);
}

TEST_F(NativeMenuTest, theModel_saysWhatIsEnabled)
{
    add(*root, u"Known"_s);
    const auto unknown = MenuItem::create(u"Unknown"_s, u"other"_s);
    unknown->setTarget(target);
    root->addItem(unknown);
    popUp([](ShownMenu menu) {
        EXPECT_FALSE(menu.autoenables());
        EXPECT_EQ(menu.title(), u"Fennrick"_s);
        const auto items = menu.items();
        EXPECT_TRUE(items[0].enabled);
        EXPECT_FALSE(items[1].enabled) << "no target of its action";
    });
}

TEST_F(NativeMenuTest, fonts_areTheSystemsOwn_orAskedForByName)
{
    const auto fontOf = [this](const QFont& font) {
        root->setFont(font);
        QString shown;
        popUp([&shown](ShownMenu menu) { shown = menu.font(); });
        return shown;
    };
    QFont font(u"Helvetica"_s);
    font.setPointSizeF(11);
    EXPECT_EQ(fontOf(font), u"Helvetica 11 weight 5"_s);
    font.setBold(true);
    EXPECT_EQ(fontOf(font), u"Helvetica 11 weight 5 bold"_s);
    system().missingFonts = {u"Helvetica"_s};
    EXPECT_EQ(fontOf(font), u"menu bar 11 bold"_s);
    font.setFamily(u".AppleSystemUIFont"_s);
    font.setBold(false);
    EXPECT_EQ(fontOf(font), u"menu bar 11"_s);
}

TEST_F(NativeMenuTest, withoutAFont_itIsTheSystemsDefault)
{
    popUp([](ShownMenu menu) { EXPECT_EQ(menu.font(), QString()); });
}

TEST_F(NativeMenuTest, attributedTitle_hasItsFontAndStroke)
{
    const auto item = add(*root, u"Fennrick"_s);
    QFont bold(u"Helvetica"_s);
    bold.setPointSizeF(13);
    bold.setBold(true);
    item->setAttributedTitle(AttributedTitle{u"Fennrick!"_s, bold, -1.0});
    add(*root, u"Plain"_s);
    const auto items = shown();
    EXPECT_EQ(items[0].attributedTitle, u"Fennrick!"_s);
    EXPECT_EQ(items[0].titleFont, u"Helvetica 13 weight 5 bold"_s);
    EXPECT_EQ(items[0].strokeWidth, -1.0);
    EXPECT_TRUE(items[1].attributedTitle.isEmpty());
}

TEST_F(NativeMenuTest, itIsFilledAsItOpens_andTheDelegateIsToldInOrder)
{
    Delegate delegate;
    delegate.onUpdate = [this](Menu& menu) {
        menu.removeAllItems();
        add(menu, u"New"_s);
    };
    add(*root, u"Old"_s);
    root->setDelegate(&delegate);
    popUp([&delegate](ShownMenu menu) {
        EXPECT_EQ(titles(menu.items()), QStringList{u"New"_s});
        menu.highlight(0);
        menu.highlight(-1);
        delegate.told.append(u"-"_s);
    });
    EXPECT_EQ(delegate.told,
              (QStringList{u"update Fennrick"_s, u"open Fennrick"_s, u"highlight Fennrick New"_s,
                           u"highlight Fennrick nothing"_s, u"-"_s, u"close Fennrick"_s}));
}

TEST_F(NativeMenuTest, anItemThatStays_keepsItsNativeOne_inTheNewOrder)
{
    const auto submenu = Menu::create(u"Sub"_s);
    add(*root, u"Sub"_s)->setSubmenu(submenu);
    const auto stays = add(*submenu, u"Stays"_s);
    add(*submenu, u"Goes"_s);
    Delegate ofSubmenu;
    submenu->setDelegate(&ofSubmenu);
    popUp([&](ShownMenu menu) {
        const auto opened = menu.open(0);
        const auto once = opened.items();
        ofSubmenu.onUpdate = [&](Menu& filled) {
            filled.removeAllItems();
            add(filled, u"Comes"_s);
            filled.addItem(stays);
        };
        opened.close();
        const auto again = menu.open(0).items();
        ASSERT_EQ(titles(again), (QStringList{u"Comes"_s, u"Stays"_s}));
        EXPECT_EQ(again[1].native, once[0].native);
        EXPECT_EQ(again[1].tag, 1) << "by which a choice is known";
        EXPECT_NE(again[0].native, once[1].native);
    });
}

TEST_F(NativeMenuTest, itOpensWhereItIsAskedFor_atTheItem)
{
    Delegate delegate;
    add(*root, u"First"_s);
    const auto second = add(*root, u"Second"_s);
    root->setDelegate(&delegate);
    popUp({});
    popUp({}, second);
    popUp({}, MenuItem::create(u"Elsewhere"_s, {}));
    ASSERT_EQ(system().popUps.size(), 3);
    for (const auto& popUp : system().popUps) {
        EXPECT_EQ(popUp.location, QPointF(100, 700));
        EXPECT_FALSE(popUp.inView);
    }
    EXPECT_EQ(system().popUps[0].item, -1);
    EXPECT_EQ(system().popUps[1].item, 1) << "also after it was filled as it opened";
    EXPECT_EQ(system().popUps[2].item, -1);
}

TEST_F(NativeMenuTest, aChoice_isTheItemOfItsTag_inItsMenu)
{
    add(*root, u"First"_s);
    const auto submenu = Menu::create(u"Sub"_s);
    root->addItem(MenuItem::separatorItem());
    const auto holder = add(*root, u"Sub"_s);
    holder->setSubmenu(submenu);
    add(*submenu, u"Inner"_s);
    add(*submenu, u"Other"_s);
    popUp([](ShownMenu menu) {
        EXPECT_TRUE(menu.items()[2].hasSubmenu);
        EXPECT_FALSE(menu.items()[0].hasSubmenu);
        menu.choose(0);
    });
    popUp([](ShownMenu menu) { menu.open(2).choose(1); });
    EXPECT_EQ(chosen, (QStringList{u"Fennrick/First"_s, u"Sub/Other"_s}));
}

TEST_F(NativeMenuTest, aSubmenu_tellsItsOwnDelegate)
{
    Delegate delegate;
    const auto submenu = Menu::create(u"Sub"_s);
    submenu->setDelegate(&delegate);
    add(*root, u"Sub"_s)->setSubmenu(submenu);
    add(*submenu, u"Inner"_s);
    popUp([](ShownMenu menu) {
        const auto opened = menu.open(0);
        opened.highlight(0);
        opened.close();
    });
    EXPECT_EQ(delegate.told,
              (QStringList{u"update Sub"_s, u"open Sub"_s, u"highlight Sub Inner"_s, u"close Sub"_s}));
}

TEST_F(NativeMenuTest, keys_areAskedOfTheDelegate_andNameNoTarget)
{
    Delegate delegate;
    delegate.hasKey = true;
    root->setDelegate(&delegate);
    const appkit::Key key{0x100000, 31, u"o"_s, u"O"_s};
    popUp([&](ShownMenu menu) {
        EXPECT_EQ(menu.hasKeyEquivalent(key), (std::pair{true, false}));
        delegate.hasKey = false;
        EXPECT_EQ(menu.hasKeyEquivalent(key), (std::pair{false, false}));
        root->setDelegate(nullptr);
        EXPECT_EQ(menu.hasKeyEquivalent(key), (std::pair{false, false}));
    });
    ASSERT_TRUE(delegate.event);
    EXPECT_EQ(delegate.event->type, Event::Type::KeyDown);
    EXPECT_EQ(delegate.event->modifierFlags, 0x100000U);
    EXPECT_EQ(delegate.event->keyCode, 31);
    EXPECT_EQ(delegate.event->characters, u"o"_s);
    EXPECT_EQ(delegate.event->charactersIgnoringModifiers, u"O"_s);
}

TEST_F(NativeMenuTest, cancelling_closesWhatIsOpen_andNothingElse)
{
    menus.cancel();
    popUp([this](ShownMenu menu) {
        menu.highlight(-1);
        menus.cancel();
    });
    EXPECT_TRUE(system().cancelled);
    popUp({});
    EXPECT_FALSE(system().cancelled);
}

} // namespace
} // namespace tarnwick
