// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/ApplicationDelegate.h"
#include "foundation/UserDefaults.h"
#include "prefs/PreferencesDisplay.h"

#include <QString>

#include <functional>
#include <memory>

namespace tarnwick {

class AboutPanel;
class AppController;
class QMMouseHotKey;

/// The application's delegate: start-up, end, and the few commands that menus offer. As an ActionTarget it
/// responds to "displayAboutPanel", "showPreferencePanel", "showPreferencePanelAction:",
/// "popUpMenuAtMouseLocation", "openQuorlaneWebpage:" and "openOstravaneWebpage:". GUI thread only.
class AppDelegate final : public ApplicationDelegate, public ActionSender
{
public:
    /// Makes the preferences, on the first request to show them; null when they cannot be made.
    using MakePreferences = std::function<std::unique_ptr<PreferencesDisplay>()>;

    explicit AppDelegate(MakePreferences makePreferences);
    ~AppDelegate() override;
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    /// To be run before the first delegate is made.
    static void initialize();
    /// Registers the table of settings, and makes it what a reset returns to.
    static void setupPreferenceDefaults();

    // What the main interface makes and connects.
    void setMouseHotKey(std::unique_ptr<QMMouseHotKey> mouseHotKey);
    void setAboutPanel(std::unique_ptr<AboutPanel> aboutPanel);

    void applicationWillFinishLaunching() override;
    void applicationDidFinishLaunching() override;
    [[nodiscard]] bool applicationShouldTerminate() override;
    [[nodiscard]] bool applicationShouldHandleReopenHasVisibleWindows(bool hasVisibleWindows) override;

    /// Asks the user what to do when menus of other applications cannot be read. May end the program.
    void accessibilityCheck();
    /// Shows the preferences on the very first start.
    void firstRunCheck();

    void displayAboutPanel();
    void showPreferencePanel();
    void showPreferencePanelAction(ActionSender* sender);
    /// Does what the hot key does; nothing before start-up has finished.
    void popUpMenuAtMouseLocation();
    void openQuorlaneWebpage(ActionSender* sender);
    void openOstravaneWebpage(ActionSender* sender);

    [[nodiscard]] bool respondsTo(const QString& action) const override;
    void perform(const QString& action, ActionSender* sender) override;

private:
    MakePreferences _makePreferences;
    std::unique_ptr<QMMouseHotKey> _mouseHotKey;
    std::unique_ptr<AppController> _appController;
    std::unique_ptr<PreferencesDisplay> _preferenceController;
    std::unique_ptr<AboutPanel> _aboutPanel;
};

} // namespace tarnwick
