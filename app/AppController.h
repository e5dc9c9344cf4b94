// SPDX-License-Identifier: MIT
#pragma once

#include "app/HotKeys.h"
#include "app/StatusBar.h"
#include "app/TWAppChangeNotifier.h"
#include "foundation/NotificationCenter.h"
#include "foundation/UserDefaultsController.h"
#include "menu/AppAccessibility.h"
#include "mouse/QMMouseHotKeyDelegate.h"

#include <QCoreApplication>
#include <QString>
#include <QUrl>
#include <QVariant>

#include <memory>
#include <optional>
#include <vector>

namespace tarnwick {

class ApplicationDelegate;
class Menu;

/// Event modifiers of the system for the modifier flags of a setting; every other bit is dropped.
[[nodiscard]] quint32 translateModifierFlags(quint32 flags);

class AppController;

/// The handler of the hot key: an event-handler result, always 0, so that the press goes no further.
qint32 myHotKeyHandler(AppController& controller);

/// The one controller of the running program: it owns the mirror, keeps it up to date with the application in
/// front and with the settings, owns the status item, and pops the mirror up at the pointer when the hot key
/// or the mouse button asks for it. Without a mirror all of it runs and shows nothing. Must live as long as
/// the event loop. GUI thread only.
class AppController final : public QMMouseHotKeyDelegate
{
    Q_DECLARE_TR_FUNCTIONS(tarnwick::AppController)

public:
    /// Failures are silent: what could be set up before is there, the rest is not.
    AppController();
    ~AppController() override;
    AppController(const AppController&) = delete;
    AppController& operator=(const AppController&) = delete;

    /// Reads all settings and hands them on, the login item included.
    void loadDefaults();
    /// What a changed setting leads to. Only the key path counts: the value is read again.
    void observeValueForKeyPathOfObjectChangeContext(const QString& keyPath,
                                                     const UserDefaultsController* object,
                                                     const QVariantMap& change, const void* context);
    void setupNotificationsToReceive();

    // Status item.
    void setupStatusItem();
    void removeStatusItem();
    [[nodiscard]] std::shared_ptr<Menu> statusItemMenu();
    /// The menu of our own commands that the mirror appends to every pop-up.
    [[nodiscard]] std::shared_ptr<Menu> addTarnwickMenuToMenu();

    // Hot key, mouse button, pop-up.
    /// Registers the hot key of the settings; a refused combination is not reported.
    void installCarbonHotKeyHandler();
    void mouseHotKeyMouseButtonActioned(QMMouseHotKey& sender, quint64 code) override;
    /// Shows the mirror as it is, empty or not, and returns when it has closed.
    void popUpMenuAtMouseLocation();

    // Refreshing the mirror.
    void updateAtInit();
    [[nodiscard]] bool menuHasItems() const;
    /// Blocks for 0.65 s, and for 1.8 s more while the new application has no menus yet.
    void handleAppChange(const Notification& notification);
    void boldenAppTitleMenu();
    void changeToButtonOVMenuFont();
    /// Drops the mirror for good.
    void clearAll();

    [[nodiscard]] QUrl appURL() const;
    void openQuorlaneWebpage();

private:
    friend class AppControllerProbe;
    [[nodiscard]] std::shared_ptr<Menu> _commandMenu() const;
    void _readFoldAlternate();
    void _readKeyEquivalents();
    void _readShowAppleMenu();
    void _readFontSizeSmall();
    void _readTitleFontSizeSmall();
    void _readShowApplicationMenu();
    void _readMouseButtonEnabled();
    void _updateMirror();
    void _setMenuFont();

    ApplicationDelegate* _appDelegate = nullptr;
    std::unique_ptr<TWAppChangeNotifier> _appChangeNotifier;
    QVariant _appPID;
    std::unique_ptr<AppAccessibility> _appUIElementInfo;
    std::shared_ptr<StatusItem> _statusItem;
    /// Kept when the hot key is given back: from then on it names nothing.
    std::optional<EventHotKeyRef> _myHotKeyRef;
    bool _enableHotkey = false;
    bool _mouseButtonEnabled = false;
    bool _foldAlternate = false;
    bool _keyEquivalents = false;
    bool _showAppleMenu = false;
    [[maybe_unused]] bool _showTarnwickMenu = false;
    // Deliberately 8 bits wide: a stored size above 127 wraps.
    qint8 _fontSizeSmall = 0;
    qint8 _titleFontSizeSmall = 0;
    bool _showApplicationMenu = false;

    std::unique_ptr<NotificationCenter::Observer> _appChangeObserver;
    std::vector<std::unique_ptr<UserDefaultsController::Observer>> _settingsObservers;
};

} // namespace tarnwick
