// SPDX-License-Identifier: MIT
#pragma once

#include "app/AppDelegate.h"
#include "foundation/SettingsKeys.h"
#include "foundation/UserDefaults.h"
#include "foundation/UserDefaultsController.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "tests/fakes/FakeAccessibility.h"
#include "tests/fakes/FakeAlerts.h"
#include "tests/fakes/FakeApplication.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeDefaultsStore.h"
#include "tests/fakes/FakeEventTaps.h"
#include "tests/fakes/FakeFonts.h"
#include "tests/fakes/FakeHotKeys.h"
#include "tests/fakes/FakeLoginItems.h"
#include "tests/fakes/FakeMenuPresenter.h"
#include "tests/fakes/FakeScreens.h"
#include "tests/fakes/FakeStatusBar.h"
#include "tests/fakes/FakeWorkspace.h"
#include "tests/fakes/MenuFile.h"

#include <gtest/gtest.h>

namespace tarnwick {

/// A desktop with "Editor" in front, whose menu bar holds "Editor" and "File", and the settings of a new
/// user.
class AppFixture : public ::testing::Test
{
protected:
    static constexpr qint64 EditorPid = 100;

    AppFixture()
    {
        Accessibility::setShared(&accessibility);
        Alerts::setShared(&alerts);
        Application::setShared(&application);
        Clock::setShared(&clock);
        DefaultsStore::setShared(&store);
        EventTaps::setShared(&taps);
        Fonts::setShared(&fonts);
        HotKeys::setShared(&hotKeys);
        LoginItems::setShared(&loginItems);
        MenuPresenter::setShared(&presenter);
        Screens::setShared(&screens);
        StatusBar::setShared(&statusBar);
        Workspace::setShared(&workspace);

        for (Journal** each : {&alerts.journal, &application.journal, &clock.journal, &store.journal,
                               &taps.journal, &hotKeys.journal, &loginItems.journal, &statusBar.journal})
            *each = &journal;
        accessibility.beforeRead = [this](const UIElementRef&, const QString& attribute) {
            if (attribute == QStringLiteral("AXMenuBar")) {
                ++rebuilds;
                journal.append(QStringLiteral("rebuild"));
                if (beforeRebuild)
                    beforeRebuild();
            }
        };

        editor = bringToFront(QStringLiteral("Editor"), EditorPid);
        giveMenuBar(editor, QStringLiteral("Editor\n  About Editor\nFile\n  New\n"));
        AppDelegate::initialize();
    }

    ~AppFixture() override
    {
        Accessibility::setShared(nullptr);
        Alerts::setShared(nullptr);
        Application::setShared(nullptr);
        Clock::setShared(nullptr);
        DefaultsStore::setShared(nullptr);
        EventTaps::setShared(nullptr);
        Fonts::setShared(nullptr);
        HotKeys::setShared(nullptr);
        LoginItems::setShared(nullptr);
        MenuPresenter::setShared(nullptr);
        Screens::setShared(nullptr);
        StatusBar::setShared(nullptr);
        Workspace::setShared(nullptr);
    }

    /// An application without a menu bar that has the focus; nobody hears of the switch yet.
    UIElementRef bringToFront(const QString& name, qint64 processIdentifier)
    {
        const UIElementRef element = accessibility.addApplication(processIdentifier, name);
        accessibility.setFocusedApplication(element);
        workspace.active = Workspace::ActiveApplication{name, processIdentifier};
        return element;
    }

    void giveMenuBar(const UIElementRef& element, const QString& menus)
    {
        accessibility.setMenuBar(element, MenuFile::parse(menus));
    }

    static void set(const QString& key, const QVariant& value)
    {
        UserDefaults::standardUserDefaults().setObjectForKey(value, key);
    }

    static QStringList titlesOf(const Menu& menu)
    {
        QStringList titles;
        for (const auto& item : menu.itemArray())
            titles.append(item->title());
        return titles;
    }

    Journal journal;                     ///< what happened, in one order; "rebuild" is one of the mirror
    int rebuilds = 0;                    ///< how often the mirror was rebuilt
    std::function<void()> beforeRebuild; ///< lever: runs just before the mirror reads a menu bar

    FakeAccessibility accessibility;
    FakeAlerts alerts;
    FakeApplication application;
    FakeClock clock;
    FakeDefaultsStore store;
    FakeEventTaps taps;
    FakeFonts fonts;
    FakeHotKeys hotKeys;
    FakeLoginItems loginItems;
    FakeMenuPresenter presenter;
    FakeScreens screens;
    FakeStatusBar statusBar;
    FakeWorkspace workspace;
    UIElementRef editor;
};

} // namespace tarnwick
