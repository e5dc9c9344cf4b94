// SPDX-License-Identifier: MIT
#pragma once

#include "menu/AppAccessibility.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/ProxyMenuItem.h"
#include "tests/fakes/FakeAccessibility.h"
#include "tests/fakes/FakeFonts.h"
#include "tests/fakes/FakeMenuPresenter.h"
#include "tests/fakes/FakeScreens.h"
#include "tests/fakes/FakeWorkspace.h"
#include "tests/fakes/SharedPorts.h"

#include <QStringList>
#include <gtest/gtest.h>

#include <memory>

namespace tarnwick {

/// A mirror of an application called "Editor", which is in front without a menu bar.
class MirrorTest : public ::testing::Test
{
protected:
    MirrorTest()
    {
        application = accessibility.addApplication(77, QStringLiteral("Editor"));
        accessibility.setFocusedApplication(application);
        workspace.active = Workspace::ActiveApplication{QStringLiteral("Editor"), 77};
        mirror = AppAccessibility::initWithFocusedApp();
    }

    /// Gives the application this menu bar, written as in a .menu file, and mirrors it.
    void show(const QString& menuBar)
    {
        accessibility.setMenuBar(application, MenuFile::parse(menuBar));
        mirror->update();
    }

    [[nodiscard]] Menu& root() const { return *mirror->menu(); }

    /// The item of the root menu with this title. Its submenu is read afresh.
    [[nodiscard]] std::shared_ptr<MenuItem> openedItem(const QString& title) const
    {
        const auto item = root().itemWithTitle(title);
        if (item && item->hasSubmenu())
            mirror->menuNeedsUpdate(*item->submenu());
        return item;
    }

    /// Opens the submenu of this item of the root menu.
    [[nodiscard]] std::shared_ptr<Menu> opened(const QString& title) const
    {
        const auto item = openedItem(title);
        return item ? item->submenu() : nullptr;
    }

    [[nodiscard]] static QStringList titlesOf(const Menu& menu)
    {
        QStringList titles;
        for (const auto& item : menu.itemArray())
            titles.append(item->title());
        return titles;
    }

    [[nodiscard]] static ProxyMenuItem* proxyOf(const std::shared_ptr<MenuItem>& item)
    {
        return item ? dynamic_cast<ProxyMenuItem*>(item->target().get()) : nullptr;
    }

    /// A menu with these titles, none of them mirrored.
    [[nodiscard]] static std::shared_ptr<Menu> plainMenu(const QStringList& titles)
    {
        auto menu = Menu::create(QStringLiteral("Plain"));
        for (const QString& title : titles)
            menu->addItem(title.isEmpty() ? MenuItem::separatorItem() : MenuItem::create(title));
        return menu;
    }

    FakeAccessibility accessibility;
    FakeWorkspace workspace;
    FakeScreens screens;
    FakeFonts fonts;
    FakeMenuPresenter presenter;
    SharedPorts sharedPorts{accessibility, workspace, screens, fonts};
    UIElementRef application;
    std::unique_ptr<AppAccessibility> mirror;
};

} // namespace tarnwick
