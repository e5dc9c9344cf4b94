// SPDX-License-Identifier: MIT
#include "prefs/PreferencesWindowController.h"

#include "foundation/Alerts.h"
#include "foundation/Application.h"
#include "foundation/SettingsKeys.h"
#include "foundation/UserDefaults.h"
#include "foundation/UserDefaultsController.h"
#include "foundation/WebPages.h"
#include "foundation/Workspace.h"
#include "mouse/TWMouseButtonIdentifier.h"
#include "prefs/AboutPane.h"
#include "prefs/AccessibilityAlert.h"
#include "prefs/GeneralOptionsPane.h"
#include "prefs/HotKeyPane.h"
#include "prefs/LoginItem.h"
#include "prefs/PreferencesToolbar.h"
#include "prefs/PreferencesWindow.h"
#include "prefs/TriggerAdvice.h"
#include "shortcut/ModifierFlags.h"
#include "shortcut/SRRecorderControl.h"

#include <QCheckBox>
#include <QHash>
#include <QScopedValueRollback>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr int GeneralOptionsTag = 100;
constexpr int HotKeyTag = 200;
constexpr int AboutTag = 400;

using Action = void (PreferencesWindowController::*)(ActionSender*);

const QHash<QString, Action>& actions()
{
    static const QHash<QString, Action> all{
        {u"changePreferencePane:"_s, &PreferencesWindowController::changePreferencePane},
        {u"mouseButtonChanged:"_s, &PreferencesWindowController::mouseButtonChanged},
        {u"startAtLogin:"_s, &PreferencesWindowController::startAtLogin},
        {u"resetButton:"_s, &PreferencesWindowController::resetButton},
        {u"fadeOutWindow:"_s, &PreferencesWindowController::fadeOutWindow},
        {u"quitFennrick:"_s, &PreferencesWindowController::quitFennrick},
        {u"openOstravaneWebpage:"_s, &PreferencesWindowController::openOstravaneWebpage},
    };
    return all;
}

UserDefaults& defaults()
{
    return UserDefaults::standardUserDefaults();
}

} // namespace

PreferencesWindowController::PreferencesWindowController()
    : _window(std::make_unique<PreferencesWindow>(*this, *this, [this] { windowWillClose(); })),
      _frameAnimation(*_window), _shortcutRecorder(_window->hotKeyView().shortcutRecorder()),
      _generalOptionsView(&_window->generalOptionsView()), _hotKeyView(&_window->hotKeyView()),
      _aboutView(&_window->aboutView()), _launchCheckBox(_window->generalOptionsView().launchCheckBox()),
      _mouseButtonIdentifier(_window->hotKeyView().mouseButtonIdentifier())
{
    _shortcutRecorder->setDelegate(this);
    _mouseButtonIdentifier->awakeFromNib();
    Workspace::shared().setCollectionBehavior(*_window, Workspace::WindowCollectionBehaviorCanJoinAllSpaces);
}

PreferencesWindowController::~PreferencesWindowController()
{
    _shortcutRecorder->setDelegate(nullptr);
}

// The window and its panes

void PreferencesWindowController::displayWindow()
{
    PreferencesToolbar& toolbar = _window->toolbar();
    toolbar.setSelectedItemIdentifier(toolbar.items().front()->identifier);
    selectPreferencesAnimate(*_hotKeyView, false);
    _mouseButtonIdentifier->setButtonNumber(defaults().unsignedForKey(TWMouseButtonKey));
    _mouseButtonIdentifier->setupTap();
    _shortcutRecorder->setObjectValue(shortcutRecorderValue());
    _window->orderFrontRegardless();
    accessibilityCheck();
    Application::shared().activateIgnoringOtherApps(true);
    tellOnceWhatIsMissing();
}

QStringList
PreferencesWindowController::toolbarSelectableItemIdentifiers(const PreferencesToolbar& toolbar) const
{
    QStringList identifiers;
    for (const auto& item : toolbar.items())
        identifiers.append(item->identifier);
    return identifiers;
}

void PreferencesWindowController::changePreferencePane(ActionSender* sender)
{
    if (const auto* item = dynamic_cast<const ToolbarItem*>(sender))
        selectPreferencesForItemAnimate(*item, true);
}

void PreferencesWindowController::selectPreferencesForItemAnimate(const ToolbarItem& item, bool animate)
{
    if (item.tag == HotKeyTag)
        _shortcutRecorder->setObjectValue(shortcutRecorderValue());
    selectPreferencesAnimate(_viewForTag(item.tag), animate);
    _window->setWindowTitle(item.plainLabel());
}

QWidget& PreferencesWindowController::_viewForTag(int tag) const
{
    switch (tag) {
    case GeneralOptionsTag:
        return *_generalOptionsView;
    case AboutTag:
        return *_aboutView;
    default:
        return *_hotKeyView;
    }
}

void PreferencesWindowController::selectPreferencesAnimate(QWidget& view, bool animate)
{
    const QSize content = _window->contentView().size();
    const int delta = view.height() - content.height();
    _window->removePanes();
    QRect frame = _window->geometry();
    frame.setHeight(frame.height() + delta);
    const int height = view.height();
    const bool moves = !Workspace::shared().accessibilityDisplayShouldReduceMotion();
    _shortcutRecorder->setAnimates(moves);
    _frameAnimation.setFrame(frame, animate && moves);
    view.resize(content.width(), height);
    _window->addPane(view);
}

void PreferencesWindowController::fadeOutWindow(ActionSender* /*sender*/)
{
    _window->close();
}

void PreferencesWindowController::windowWillClose()
{
    _mouseButtonIdentifier->disableAndReleaseTap();
}

void PreferencesWindowController::quitFennrick(ActionSender* /*sender*/)
{
    Application::shared().terminate(this);
}

void PreferencesWindowController::openOstravaneWebpage(ActionSender* /*sender*/)
{
    Workspace::shared().openURL(ostravaneWebpage());
}

// The hot key

QVariantMap PreferencesWindowController::shortcutRecorderValue() const
{
    return {{u"keyCode"_s, defaults().objectForKey(TWTriggerCharacterKey)},
            {u"modifierFlags"_s, defaults().objectForKey(TWTriggerModifiersKey)}};
}

void PreferencesWindowController::shortcutRecorderKeyComboDidChange(SRRecorderControl& recorder,
                                                                    const KeyCombo& keyCombo)
{
    if (_resetting)
        return; // what the recorder shows now was not recorded
    // The text last: a change of it makes the controller take the hot key up.
    const auto text = recorder.keyComboString();
    defaults().setObjectForKey(keyCombo.flags, TWTriggerModifiersKey);
    defaults().setObjectForKey(static_cast<quint64>(keyCombo.code), TWTriggerCharacterKey);
    defaults().setObjectForKey(text ? QVariant(*text) : QVariant(), TWTriggerKey);
}

bool PreferencesWindowController::shortcutRecorderIsKeyCodeAndFlagsTakenReason(
    SRRecorderControl& /*recorder*/, qint64 keyCode, quint64 cocoaFlags, std::optional<QString>& reason)
{
    const auto* advice = TriggerAdvice::sharedOrNull();
    if (!advice || keyCode < 0)
        return false;
    const auto owner = advice->ownerOf(quint32(keyCode), quint32(SRCocoaToCarbonFlags(cocoaFlags)));
    if (owner)
        reason = tr("they are taken by %1").arg(*owner);
    return owner.has_value();
}

// The mouse button

void PreferencesWindowController::mouseButtonChanged(ActionSender* sender)
{
    if (const auto* identifier = dynamic_cast<const TWMouseButtonIdentifier*>(sender))
        writeNewMouseButton(identifier->buttonNumber());
}

void PreferencesWindowController::writeNewMouseButton(quint64 number)
{
    defaults().setObjectForKey(number, TWMouseButtonKey);
}

// Start at login

void PreferencesWindowController::startAtLogin(ActionSender* /*sender*/)
{
    const bool state = _launchCheckBox->isChecked();
    setStartAtLoginEnabled(appURL(), state);
    defaults().setBoolForKey(state, TWLaunchOnLoginKey);
}

void PreferencesWindowController::setStartAtLoginEnabled(const QUrl& applicationUrl, bool enabled)
{
    setLoginItemEnabled(applicationUrl, enabled);
}

QUrl PreferencesWindowController::appURL()
{
    return QUrl::fromLocalFile(Application::shared().bundlePath());
}

// Reset

void PreferencesWindowController::resetButton(ActionSender* sender)
{
    UserDefaultsController::sharedUserDefaultsController().revertToInitialValues(sender);
    {
        // Storing what the recorder shows would replace the default text of the hot key by the recorder's
        // own.
        const QScopedValueRollback resetting(_resetting, true);
        _shortcutRecorder->setObjectValue(shortcutRecorderValue());
    }
    startAtLogin(sender);
}

// The accessibility alert

void PreferencesWindowController::accessibilityCheck()
{
    if (accessibilityGranted())
        return;
    Alerts::shared().beginSheetModalForWindow(accessibilityAlert(), _window.get(), [this](int returnCode) {
        alertDidEndReturnCodeContextInfo(returnCode);
    });
}

void PreferencesWindowController::tellOnceWhatIsMissing()
{
    const QString command = Workspace::shared().commandThatPopsUp();
    // One sheet at a time.
    if (command.isEmpty() || defaults().boolForKey(TWToldWhatIsMissingKey) || !accessibilityGranted())
        return;
    defaults().setBoolForKey(true, TWToldWhatIsMissingKey);
    const Alert alert =
        PreferencesWindow::alertAboutWhatIsMissing(command, Workspace::shared().anotherBuildSeesMore());
    Alerts::shared().beginSheetModalForWindow(alert, _window.get(), [](int) {});
}

void PreferencesWindowController::alertDidEndReturnCodeContextInfo(int returnCode)
{
    accessibilityAlertDidEnd(returnCode, this);
}

// Actions

bool PreferencesWindowController::respondsTo(const QString& action) const
{
    return actions().contains(action);
}

void PreferencesWindowController::perform(const QString& action, ActionSender* sender)
{
    if (const auto found = actions().constFind(action); found != actions().cend())
        (this->*found.value())(sender);
}

} // namespace tarnwick
