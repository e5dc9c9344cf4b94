// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

#include "app/AboutPanel.h"
#include "app/AppController.h"
#include "foundation/Alerts.h"
#include "foundation/Application.h"
#include "foundation/SettingsKeys.h"
#include "foundation/UserDefaultsController.h"
#include "foundation/WebPages.h"
#include "foundation/Workspace.h"
#include "mouse/QMMouseHotKey.h"
#include "prefs/AccessibilityAlert.h"

#include <QHash>

#include <utility>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

using Command = std::function<void(AppDelegate&, ActionSender*)>;

const QHash<QString, Command>& commands()
{
    static const QHash<QString, Command> all{
        {u"displayAboutPanel"_s, [](AppDelegate& delegate, ActionSender*) { delegate.displayAboutPanel(); }},
        {u"showPreferencePanel"_s,
         [](AppDelegate& delegate, ActionSender*) { delegate.showPreferencePanel(); }},
        {u"showPreferencePanelAction:"_s, &AppDelegate::showPreferencePanelAction},
        {u"popUpMenuAtMouseLocation"_s,
         [](AppDelegate& delegate, ActionSender*) { delegate.popUpMenuAtMouseLocation(); }},
        {u"openQuorlaneWebpage:"_s, &AppDelegate::openQuorlaneWebpage},
        {u"openOstravaneWebpage:"_s, &AppDelegate::openOstravaneWebpage},
    };
    return all;
}

} // namespace

AppDelegate::AppDelegate(MakePreferences makePreferences) : _makePreferences(std::move(makePreferences)) {}

AppDelegate::~AppDelegate() = default;

void AppDelegate::initialize()
{
    setupPreferenceDefaults();
}

void AppDelegate::setupPreferenceDefaults()
{
    constexpr quint64 KeyCodeOfZ = 6;
    constexpr quint64 ExtraMouseButton = 25;
    const DefaultsTable table{
        {TWEnableHotKeyKey, true},
        {TWTriggerKey, u"\u02C4Z"_s}, // not what the recorder writes for Option-Z
        {TWTriggerCharacterKey, KeyCodeOfZ},
        {TWTriggerModifiersKey, quint64(AlternateKeyMask)},
        {TWFoldAlternateKey, true},
        {TWShowKeyEquivalentsKey, false},
        {TWShowAppleMenuKey, true},
        {TWShowStatusBarIconKey, true},
        {TWShowTarnwickMenuKey, true},
        {TWLaunchOnLoginKey, false},
        {TWFontSizeSmallKey, 11},
        {TWTitleFontSizeSmallKey, 0},
        {TWShowApplicationMenuKey, true},
        {TWEnableMouseButtonKey, false},
        {TWMouseButtonKey, ExtraMouseButton},
    };
    UserDefaults::standardUserDefaults().registerDefaults(table);
    UserDefaultsController::sharedUserDefaultsController().setInitialValues(table);
}

void AppDelegate::setMouseHotKey(std::unique_ptr<QMMouseHotKey> mouseHotKey)
{
    _mouseHotKey = std::move(mouseHotKey);
}

void AppDelegate::setAboutPanel(std::unique_ptr<AboutPanel> aboutPanel)
{
    _aboutPanel = std::move(aboutPanel);
}

void AppDelegate::applicationWillFinishLaunching()
{
    accessibilityCheck();
    if (Application::shared().terminating())
        return;
    if (!_appController)
        _appController = std::make_unique<AppController>();
    firstRunCheck();
}

void AppDelegate::applicationDidFinishLaunching()
{
    if (_mouseHotKey)
        _mouseHotKey->setDelegate(_appController.get());
}

bool AppDelegate::applicationShouldTerminate()
{
    if (_mouseHotKey)
        _mouseHotKey->killTap();
    return true;
}

bool AppDelegate::applicationShouldHandleReopenHasVisibleWindows(bool /*hasVisibleWindows*/)
{
    showPreferencePanel();
    return false;
}

void AppDelegate::accessibilityCheck()
{
    if (!accessibilityGranted())
        accessibilityAlertDidEnd(Alerts::shared().runModal(accessibilityAlert()), this);
}

void AppDelegate::firstRunCheck()
{
    auto& defaults = UserDefaults::standardUserDefaults();
    if (defaults.boolForKey(TWFirstRunKey))
        return;
    defaults.setBoolForKey(true, TWFirstRunKey);
    showPreferencePanel();
}

void AppDelegate::displayAboutPanel()
{
    if (_aboutPanel)
        _aboutPanel->orderFrontRegardless();
}

void AppDelegate::showPreferencePanel()
{
    if (!_preferenceController)
        _preferenceController = _makePreferences();
    if (_preferenceController)
        _preferenceController->displayWindow();
}

void AppDelegate::showPreferencePanelAction(ActionSender* /*sender*/)
{
    showPreferencePanel();
}

void AppDelegate::popUpMenuAtMouseLocation()
{
    if (_appController)
        _appController->popUpMenuAtMouseLocation();
}

void AppDelegate::openQuorlaneWebpage(ActionSender* /*sender*/)
{
    Workspace::shared().openURL(quorlaneWebpage());
}

void AppDelegate::openOstravaneWebpage(ActionSender* /*sender*/)
{
    Workspace::shared().openURL(ostravaneWebpage());
}

bool AppDelegate::respondsTo(const QString& action) const
{
    return commands().contains(action);
}

void AppDelegate::perform(const QString& action, ActionSender* sender)
{
    if (const auto command = commands().constFind(action); command != commands().cend())
        (*command)(*this, sender);
}

} // namespace tarnwick
