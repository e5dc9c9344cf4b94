// SPDX-License-Identifier: MIT
#pragma once

#include "app/AppDelegate.h"
#include "foundation/SettingsKeys.h"
#include "foundation/UserDefaults.h"
#include "foundation/UserDefaultsController.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/MenuFile.h"

#include <gtest/gtest.h>

namespace tarnwick {

/// A desktop with "Editor" in front, whose menu bar holds "Editor" and "File", and the settings of a new
/// user.
class AppFixture : public ::testing::Test, protected FakeDesktop
{
protected:
    static constexpr qint64 EditorPid = 100;

    AppFixture()
    {
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
    UIElementRef editor;
};

} // namespace tarnwick
