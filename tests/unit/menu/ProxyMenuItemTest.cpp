// SPDX-License-Identifier: MIT
#include "menu/ProxyMenuItem.h"

#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "tests/fakes/FakeAccessibility.h"
#include "tests/fakes/SharedPorts.h"

#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

class ProxyMenuItemTest : public ::testing::Test
{
protected:
    ProxyMenuItemTest()
    {
        file->setSubmenu(fileMenu);
        root->addItem(file);
        fileMenu->addItem(newFolder);
        proxy.setAppName(u"Finder"_s);
        proxy.setMenuItem(newFolder);
    }

    FakeAccessibility accessibility;
    SharedPorts sharedPorts{accessibility};
    std::shared_ptr<Menu> root = Menu::create(u"Root"_s);
    std::shared_ptr<Menu> fileMenu = Menu::create(u"Sub Menu for: File"_s);
    std::shared_ptr<MenuItem> file = MenuItem::create(u"File"_s);
    std::shared_ptr<MenuItem> newFolder = MenuItem::create(u"New Folder"_s);
    ProxyMenuItem proxy;
};

} // namespace

TEST_F(ProxyMenuItemTest, freshProxy_holdsNothing)
{
    const ProxyMenuItem fresh;
    EXPECT_FALSE(fresh.itemAXUIElementRef());
    EXPECT_FALSE(fresh.appAXUIElementRef());
    EXPECT_EQ(fresh.appName(), std::nullopt);
    EXPECT_EQ(fresh.menuItem().lock(), nullptr);
}

TEST_F(ProxyMenuItemTest, clickMenuItem_pressesTheElement)
{
    const auto application = accessibility.addApplication(1, u"Finder"_s);
    const auto element = accessibility.addElement(application, u"AXMenuItem"_s, u"New Folder"_s);
    accessibility.addAction(element, AXPressAction, u"press"_s);
    proxy.setItemAXUIElementRef(element);
    proxy.perform(u"clickMenuItem"_s, newFolder.get());
    ASSERT_EQ(accessibility.presses.size(), 1);
    EXPECT_EQ(accessibility.presses.first().element, element);
    EXPECT_EQ(accessibility.presses.first().action, u"AXPress"_s);

    proxy.perform(u"otherAction"_s, newFolder.get());
    EXPECT_EQ(accessibility.presses.size(), 1);
    accessibility.quit(application);
    proxy.clickMenuItem();
    EXPECT_EQ(accessibility.presses.size(), 1) << "a press on what is gone fails silently";
}

TEST_F(ProxyMenuItemTest, respondsTo_itsOneActionOnly)
{
    EXPECT_TRUE(proxy.respondsTo(u"clickMenuItem"_s));
    EXPECT_FALSE(proxy.respondsTo(u"clickMenuItem:"_s));
    EXPECT_FALSE(proxy.respondsTo(u""_s));
}

TEST_F(ProxyMenuItemTest, itemKey_namesApplicationAndPath)
{
    EXPECT_EQ(proxy.itemKey(), u"Finder|File|New Folder"_s);
}

TEST_F(ProxyMenuItemTest, itemKey_ofATopItemWithASubmenu_endsInABar)
{
    proxy.setMenuItem(file);
    EXPECT_EQ(proxy.itemKey(), u"Finder|File|"_s);
}

TEST_F(ProxyMenuItemTest, itemKey_calledAgain_foldsTheStoredKeyInAtEveryLevel)
{
    EXPECT_EQ(proxy.itemKey(), u"Finder|File|New Folder"_s);
    EXPECT_EQ(proxy.itemKey(), u"Finder|File|Finder|File|New FolderNew FolderFinder|File|New Folder"_s);
}

TEST_F(ProxyMenuItemTest, createKey_leavesTheStoredKeyAlone)
{
    EXPECT_EQ(proxy.createKeyForFennrickItem(newFolder), u"File|New Folder"_s);
    EXPECT_EQ(proxy.createKeyForFennrickItem(newFolder), u"File|New Folder"_s);
    EXPECT_EQ(proxy.createKeyForFennrickItem(file), u"File|"_s);
}

TEST_F(ProxyMenuItemTest, itemKey_doesNotQuoteBars)
{
    newFolder->setTitle(u"a|b"_s);
    EXPECT_EQ(proxy.itemKey(), u"Finder|File|a|b"_s);
}

TEST_F(ProxyMenuItemTest, itemKey_withoutAnItemOrAName_saysNull)
{
    proxy.setMenuItem({});
    EXPECT_EQ(proxy.itemKey(), u"Finder|(null)"_s);
    EXPECT_EQ(proxy.itemKey(), u"Finder|(null)Finder|(null)"_s);
    ProxyMenuItem fresh;
    EXPECT_EQ(fresh.itemKey(), u"(null)|(null)"_s);
}

TEST_F(ProxyMenuItemTest, menuItem_isNotKeptAlive)
{
    auto item = MenuItem::create(u"Lone"_s);
    proxy.setMenuItem(item);
    item.reset();
    EXPECT_EQ(proxy.menuItem().lock(), nullptr);
    EXPECT_EQ(proxy.itemKey(), u"Finder|(null)"_s);
}
