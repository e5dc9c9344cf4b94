// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Action.h"
#include "prefs/FrameAnimation.h"
#include "prefs/PreferencesDisplay.h"
#include "shortcut/SRRecorderControlDelegate.h"

#include <QCoreApplication>
#include <QStringList>
#include <QUrl>
#include <QVariantMap>

#include <memory>

class QCheckBox;
class QWidget;

namespace tarnwick {

class PreferencesToolbar;
class PreferencesWindow;
class TWMouseButtonIdentifier;
struct ToolbarItem;

/// Runs the preferences window. Settings that a control is bound to need nothing of it; it stores the hot key
/// and the mouse button, starts the program at login, switches the panes and warns when menus cannot be read.
/// As an ActionTarget it responds to "changePreferencePane:", "mouseButtonChanged:", "startAtLogin:",
/// "resetButton:", "fadeOutWindow:", "quitFennrick:" and "openOstravaneWebpage:". GUI thread only.
class PreferencesWindowController final : public PreferencesDisplay,
                                          public SRRecorderControlDelegate,
                                          public ActionTarget,
                                          public ActionSender
{
    Q_DECLARE_TR_FUNCTIONS(tarnwick::PreferencesWindowController)

public:
    /// Makes the window, which shows on whichever workspace is in front.
    PreferencesWindowController();
    ~PreferencesWindowController() override;
    PreferencesWindowController(const PreferencesWindowController&) = delete;
    PreferencesWindowController& operator=(const PreferencesWindowController&) = delete;

    [[nodiscard]] PreferencesWindow& window() const { return *_window; }
    [[nodiscard]] SRRecorderControl& shortcutRecorder() const { return *_shortcutRecorder; }
    [[nodiscard]] TWMouseButtonIdentifier& mouseButtonIdentifier() const { return *_mouseButtonIdentifier; }
    [[nodiscard]] QCheckBox& launchCheckBox() const { return *_launchCheckBox; }

    /// Shows the hot-key pane with what the settings hold now.
    void displayWindow() override;

    [[nodiscard]] QStringList toolbarSelectableItemIdentifiers(const PreferencesToolbar& toolbar) const;
    void changePreferencePane(ActionSender* sender);
    void selectPreferencesForItemAnimate(const ToolbarItem& item, bool animate);
    /// Puts `view` in the place of the pane that is shown. The window keeps its top edge and its width and
    /// grows or shrinks by the difference of the heights.
    void selectPreferencesAnimate(QWidget& view, bool animate);

    /// The hot key of the settings, as the recorder takes it.
    [[nodiscard]] QVariantMap shortcutRecorderValue() const;
    void shortcutRecorderKeyComboDidChange(SRRecorderControl& recorder, const KeyCombo& keyCombo) override;
    bool shortcutRecorderIsKeyCodeAndFlagsTakenReason(SRRecorderControl& recorder, qint64 keyCode,
                                                      quint64 cocoaFlags,
                                                      std::optional<QString>& reason) override;

    /// `sender` is the mouse-button control.
    void mouseButtonChanged(ActionSender* sender);
    void writeNewMouseButton(quint64 number);

    void startAtLogin(ActionSender* sender);
    /// Adds `applicationUrl` to the user's login items unless it is among them, or removes the first entry
    /// for it. Does nothing where there is no such list.
    static void setStartAtLoginEnabled(const QUrl& applicationUrl, bool enabled);
    /// File URL of what the user starts.
    [[nodiscard]] static QUrl appURL();

    /// Every setting gets its default.
    void resetButton(ActionSender* sender);

    /// Warns, in a sheet on the window, when menus of other applications cannot be read.
    void accessibilityCheck();
    /// Tells in a sheet, the first time that the window is shown in such a session, what is missing there.
    void tellOnceWhatIsMissing();
    void alertDidEndReturnCodeContextInfo(int returnCode);

    /// Closes the window; nothing fades.
    void fadeOutWindow(ActionSender* sender);
    void windowWillClose();
    void quitFennrick(ActionSender* sender);
    void openOstravaneWebpage(ActionSender* sender);

    [[nodiscard]] bool respondsTo(const QString& action) const override;
    void perform(const QString& action, ActionSender* sender) override;

private:
    [[nodiscard]] QWidget& _viewForTag(int tag) const;

    std::unique_ptr<PreferencesWindow> _window;
    FrameAnimation _frameAnimation;

    SRRecorderControl* _shortcutRecorder;
    QWidget* _generalOptionsView;
    QWidget* _hotKeyView;
    QWidget* _aboutView;
    QCheckBox* _launchCheckBox;
    [[maybe_unused]] QCheckBox* _startAtLogin = nullptr;
    TWMouseButtonIdentifier* _mouseButtonIdentifier;
    bool _resetting = false;
};

} // namespace tarnwick
