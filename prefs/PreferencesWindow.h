// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Alerts.h"

#include <QWidget>

#include <functional>

class QCheckBox;

namespace tarnwick {

class AboutPane;
class ActionSender;
class ActionTarget;
class GeneralOptionsPane;
class HotKeyPane;
class PreferencesToolbar;

/// The preferences window as it is laid out: a toolbar, below it the content view, and the panes that go into
/// that one by one. Its controls are bound to the settings.
class PreferencesWindow final : public QWidget
{
    Q_OBJECT

public:
    /// Actions go to `target`, sent by `sender`; neither is owned. `willClose` runs each time the window is
    /// about to close.
    PreferencesWindow(ActionTarget& target, ActionSender& sender, std::function<void()> willClose);
    ~PreferencesWindow() override;

    [[nodiscard]] PreferencesToolbar& toolbar() const { return *_toolbar; }
    /// It has its place in the window even while the window is hidden.
    [[nodiscard]] QWidget& contentView() const;
    [[nodiscard]] HotKeyPane& hotKeyView() const { return *_hotKeyView; }
    [[nodiscard]] GeneralOptionsPane& generalOptionsView() const { return *_generalOptionsView; }
    [[nodiscard]] AboutPane& aboutView() const { return *_aboutView; }

    /// Shows it above all windows, even if it was minimised; the application that has the keyboard keeps it.
    void orderFrontRegardless();

    /// Tells what does not work in a session that hides other applications; `command` opens the menu there.
    [[nodiscard]] static Alert alertAboutWhatIsMissing(const QString& command, bool inOtherBuilds);

    /// Takes every pane out of the content view; it stays alive.
    void removePanes();
    /// Puts `pane` into the content view, where it stands.
    void addPane(QWidget& pane);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    /// Another font or style wants another size.
    bool event(QEvent* event) override;

private:
    void _addToolbarItems();
    void _sizePanes();
    [[nodiscard]] const QWidget& _shownPane() const;
    void _layOut() const;

    std::function<void()> _willClose;
    PreferencesToolbar* _toolbar;
    QWidget* _contentView;
    QWidget* _panesNotShown;
    HotKeyPane* _hotKeyView;
    GeneralOptionsPane* _generalOptionsView;
    AboutPane* _aboutView;
};

} // namespace tarnwick
