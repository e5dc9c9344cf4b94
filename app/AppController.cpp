// SPDX-License-Identifier: MIT
#include "app/AppController.h"

#include "foundation/Application.h"
#include "foundation/ApplicationDelegate.h"
#include "foundation/Clock.h"
#include "foundation/Fonts.h"
#include "foundation/Screens.h"
#include "foundation/SettingsKeys.h"
#include "foundation/UserDefaults.h"
#include "foundation/WebPages.h"
#include "foundation/Workspace.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuPresenter.h"
#include "prefs/LoginItem.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

constexpr quint32 CmdKey = 0x100;
constexpr quint32 ShiftKey = 0x200;
constexpr quint32 OptionKey = 0x800;
constexpr quint32 ControlKey = 0x1000;

constexpr EventHotKeyID HotKeyID{0x747A7131, 1}; // "tzq1"

UserDefaults& defaults()
{
    return UserDefaults::standardUserDefaults();
}

// The delegate and the application own, directly or not, the menus that target them.
std::shared_ptr<ActionTarget> unowned(ActionTarget* target)
{
    return {std::shared_ptr<void>(), target};
}

QImage imageResource(const QString& name)
{
    const QString path = Application::shared().pathForResourceOfType(name, u"png"_s);
    return path.isEmpty() ? QImage() : QImage(path, "PNG");
}

} // namespace

quint32 translateModifierFlags(quint32 flags)
{
    quint32 modifiers = 0;
    if (flags & CommandKeyMask)
        modifiers |= CmdKey;
    if (flags & ShiftKeyMask)
        modifiers |= ShiftKey;
    if (flags & AlternateKeyMask)
        modifiers |= OptionKey;
    if (flags & ControlKeyMask)
        modifiers |= ControlKey;
    return modifiers;
}

qint32 myHotKeyHandler(AppController& controller)
{
    controller.popUpMenuAtMouseLocation();
    return HotKeys::noErr;
}

AppController::AppController()
    : _appDelegate(Application::shared().delegate()),
      _appChangeNotifier(std::make_unique<TWAppChangeNotifier>())
{
    if (!_appChangeNotifier->setupAppFrontSwitchedHandler())
        return;
    setupNotificationsToReceive();
    _appUIElementInfo = AppAccessibility::initWithFocusedApp();
    if (!_appUIElementInfo)
        return;
    loadDefaults();
    setupStatusItem();
    updateAtInit();
}

AppController::~AppController() = default;

void AppController::loadDefaults()
{
    _enableHotkey = defaults().boolForKey(TWEnableHotKeyKey);
    if (_enableHotkey)
        installCarbonHotKeyHandler();
    _readFoldAlternate();
    _readKeyEquivalents();
    _readShowAppleMenu();
    _readFontSizeSmall();
    _readTitleFontSizeSmall();
    setLoginItemEnabled(appURL(), defaults().boolForKey(TWLaunchOnLoginKey));
    _readShowApplicationMenu();
    if (_appUIElementInfo)
        _appUIElementInfo->setAuxiliaryMenu(addTarnwickMenuToMenu());
    _readMouseButtonEnabled();
}

void AppController::_readFoldAlternate()
{
    _foldAlternate = defaults().boolForKey(TWFoldAlternateKey);
    if (_appUIElementInfo)
        _appUIElementInfo->setFoldAlternateItems(_foldAlternate);
}

void AppController::_readKeyEquivalents()
{
    _keyEquivalents = defaults().boolForKey(TWShowKeyEquivalentsKey);
    if (_appUIElementInfo)
        _appUIElementInfo->setKeyEquivalents(_keyEquivalents);
}

void AppController::_readShowAppleMenu()
{
    _showAppleMenu = defaults().boolForKey(TWShowAppleMenuKey);
    if (_appUIElementInfo)
        _appUIElementInfo->setShowAppleMenu(_showAppleMenu);
}

void AppController::_readFontSizeSmall()
{
    _fontSizeSmall = static_cast<qint8>(defaults().intForKey(TWFontSizeSmallKey));
}

void AppController::_readTitleFontSizeSmall()
{
    _titleFontSizeSmall = static_cast<qint8>(defaults().intForKey(TWTitleFontSizeSmallKey));
}

void AppController::_readShowApplicationMenu()
{
    _showApplicationMenu = defaults().boolForKey(TWShowApplicationMenuKey);
    if (_appUIElementInfo)
        _appUIElementInfo->setShowApplicationMenu(_showApplicationMenu);
}

void AppController::_readMouseButtonEnabled()
{
    _mouseButtonEnabled = defaults().boolForKey(TWEnableMouseButtonKey);
}

void AppController::_updateMirror()
{
    if (_appUIElementInfo)
        _appUIElementInfo->update();
}

void AppController::setupNotificationsToReceive()
{
    _appChangeObserver = NotificationCenter::defaultCenter().addObserver(
        TWAppChangedNotification, _appChangeNotifier.get(),
        [this](const Notification& notification) { handleAppChange(notification); });

    auto& controller = UserDefaultsController::sharedUserDefaultsController();
    for (const QString& key : {TWEnableHotKeyKey, TWTriggerKey, TWFoldAlternateKey, TWShowKeyEquivalentsKey,
                               TWShowAppleMenuKey, TWShowStatusBarIconKey, TWFontSizeSmallKey,
                               TWTitleFontSizeSmallKey, TWShowApplicationMenuKey, TWEnableMouseButtonKey}) {
        _settingsObservers.push_back(
            controller.addObserverForKeyPath(u"values."_s + key, [this, &controller](const QString& keyPath) {
                observeValueForKeyPathOfObjectChangeContext(keyPath, &controller, {}, nullptr);
            }));
    }
}

void AppController::observeValueForKeyPathOfObjectChangeContext(const QString& keyPath,
                                                                const UserDefaultsController* /*object*/,
                                                                const QVariantMap& /*change*/,
                                                                const void* /*context*/)
{
    using Reaction = void (AppController::*)();
    static const std::pair<QString, Reaction> reactions[] = {
        {u"values."_s + TWEnableHotKeyKey, &AppController::installCarbonHotKeyHandler},
        {u"values."_s + TWTriggerKey, &AppController::installCarbonHotKeyHandler},
        {u"values."_s + TWShowStatusBarIconKey, &AppController::setupStatusItem},
        {u"values."_s + TWFoldAlternateKey, &AppController::_readFoldAlternate},
        {u"values."_s + TWShowKeyEquivalentsKey, &AppController::_readKeyEquivalents},
        {u"values."_s + TWShowAppleMenuKey, &AppController::_readShowAppleMenu},
        // This is the only flag that has an effect at the next pop-up already.
        {u"values."_s + TWShowAppleMenuKey, &AppController::_updateMirror},
        {u"values."_s + TWFontSizeSmallKey, &AppController::_readFontSizeSmall},
        {u"values."_s + TWTitleFontSizeSmallKey, &AppController::_readTitleFontSizeSmall},
        {u"values."_s + TWShowApplicationMenuKey, &AppController::_readShowApplicationMenu},
        {u"values."_s + TWEnableMouseButtonKey, &AppController::_readMouseButtonEnabled},
    };
    for (const auto& [path, reaction] : reactions) {
        if (keyPath == path)
            (this->*reaction)();
    }
}

void AppController::setupStatusItem()
{
    const bool show = defaults().boolForKey(TWShowStatusBarIconKey);
    if (_statusItem) {
        if (!show)
            removeStatusItem();
        return;
    }
    if (!show)
        return;
    _statusItem = StatusBar::systemStatusBar().statusItemWithLength(StatusBar::VariableStatusItemLength);
    _statusItem->setHighlightMode(true);
    _statusItem->setMenu(statusItemMenu());
    _statusItem->setImage(imageResource(u"TarnwickMenuBarIcon"_s));
    _statusItem->setAlternateImage(imageResource(u"TarnwickMenuBarInverseIcon"_s));
}

void AppController::removeStatusItem()
{
    StatusBar::systemStatusBar().removeStatusItem(_statusItem);
    _statusItem.reset();
}

std::shared_ptr<Menu> AppController::statusItemMenu()
{
    auto menu = _commandMenu();
    menu->setAutoenablesItems(true);
    return menu;
}

std::shared_ptr<Menu> AppController::addTarnwickMenuToMenu()
{
    return _commandMenu();
}

std::shared_ptr<Menu> AppController::_commandMenu() const
{
    auto menu = Menu::create(u"Tarnwick"_s);
    const auto add = [&menu](const QString& title, ActionTarget* target, const QString& action) {
        const auto item = MenuItem::create(title, action);
        item->setTarget(unowned(target));
        menu->addItem(item);
    };
    add(tr("About Tarnwick..."), _appDelegate, u"displayAboutPanel"_s);
    add(tr("Preferences..."), _appDelegate, u"showPreferencePanel"_s);
    add(tr("Quit"), &Application::shared(), u"terminate:"_s);
    return menu;
}

void AppController::installCarbonHotKeyHandler()
{
    auto& hotKeys = HotKeys::shared();
    const bool enabled = defaults().boolForKey(TWEnableHotKeyKey);
    // The setting counts only where a hot key was registered before: without one, recording a shortcut is
    // enough to register it. Giving one back a second time fails, which does no harm.
    if (_myHotKeyRef) {
        hotKeys.unregisterEventHotKey(*_myHotKeyRef);
        if (!enabled)
            return;
    }
    hotKeys.installEventHandler([this] { return myHotKeyHandler(*this); });
    const quint64 flags = defaults().unsignedForKey(TWTriggerModifiersKey);
    const quint64 keyCode = defaults().unsignedForKey(TWTriggerCharacterKey);
    const auto hotKey = hotKeys.registerEventHotKey(
        static_cast<quint32>(keyCode), translateModifierFlags(static_cast<quint32>(flags)), HotKeyID, 0);
    if (hotKey)
        _myHotKeyRef = hotKey;
}

void AppController::mouseHotKeyMouseButtonActioned(QMMouseHotKey& /*sender*/, quint64 code)
{
    if (_mouseButtonEnabled && defaults().unsignedForKey(TWMouseButtonKey) == code)
        popUpMenuAtMouseLocation();
}

void AppController::popUpMenuAtMouseLocation()
{
    if (!_appUIElementInfo)
        return;
    const auto menu = _appUIElementInfo->menu();
    MenuPresenter::shared().popUpMenuPositioningItem(menu, nullptr, Screens::shared().mouseLocation());
}

void AppController::updateAtInit()
{
    _updateMirror();
    _setMenuFont();
}

bool AppController::menuHasItems() const
{
    return _appUIElementInfo && _appUIElementInfo->menu()->numberOfItems() > 0;
}

void AppController::handleAppChange(const Notification& notification)
{
    _appPID = notification.userInfo.value(u"PID"_s);
    Clock::shared().sleepForTimeInterval(0.65F); // in single precision: 0.64999997615814209
    _updateMirror();
    if (!menuHasItems()) {
        Clock::shared().sleepForTimeInterval(1.8);
        _updateMirror();
        // This one publishes its menu bar later than all others.
        if (_appUIElementInfo && _appUIElementInfo->focusedAppName() == u"Firefox"_s)
            _updateMirror();
    }
    boldenAppTitleMenu();
    _setMenuFont();
}

void AppController::boldenAppTitleMenu()
{
    if (!_appUIElementInfo)
        return;
    const auto name = _appUIElementInfo->focusedAppName();
    const auto item = name ? _appUIElementInfo->menu()->itemWithTitle(*name) : nullptr;
    if (!item)
        return;
    auto& fonts = Fonts::shared();
    const QFont bold =
        fonts.convertFontToHaveTrait(fonts.menuBarFontOfSize(_fontSizeSmall), Fonts::BoldTrait);
    item->setAttributedTitle(AttributedTitle{*name, bold, std::nullopt});
}

void AppController::_setMenuFont()
{
    if (_appUIElementInfo)
        _appUIElementInfo->menu()->setFont(Fonts::shared().menuBarFontOfSize(_fontSizeSmall));
}

void AppController::changeToButtonOVMenuFont()
{
    if (_appUIElementInfo && _appUIElementInfo->auxiliaryMenu())
        _appUIElementInfo->auxiliaryMenu()->setFont(Fonts::shared().menuBarFontOfSize(_fontSizeSmall));
}

void AppController::clearAll()
{
    _appUIElementInfo.reset();
}

QUrl AppController::appURL() const
{
    return QUrl::fromLocalFile(Application::shared().bundlePath());
}

void AppController::openQuorlaneWebpage()
{
    Workspace::shared().openURL(quorlaneWebpage());
}

} // namespace tarnwick
