// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/hotkeys/DesktopShortcutStores.h"
#include "shortcut/SymbolicHotKeys.h"

#include <QObject>
#include <QSet>

#include <functional>
#include <memory>

namespace tarnwick {

class XkbKeymap;

/// The shortcuts that the desktop has written down, and whatever else is held. They can be switched off while
/// one of our windows has the focus.
class LinuxSymbolicHotKeys final : public QObject, public SymbolicHotKeys
{
    Q_OBJECT

public:
    /// What it asks other adapters.
    struct Desktop
    {
        DesktopShortcutStores stores;
        QStringList currentDesktops;
        /// The keyboard map that types now; null where there is none.
        std::function<std::shared_ptr<const XkbKeymap>()> keymap;
        /// Whether somebody but this process holds the combination.
        std::function<bool(quint32 keyCode, quint32 modifiers)> heldElsewhere;
        /// Has all keys come to our window with the focus; false where they cannot, or none has it.
        std::function<bool()> takeKeyboard = [] { return false; };
        /// Undoes it; does nothing when there is nothing to undo.
        std::function<void()> releaseKeyboard = [] {};
    };

    explicit LinuxSymbolicHotKeys(Desktop desktop);
    ~LinuxSymbolicHotKeys() override;

    [[nodiscard]] std::optional<QList<SymbolicHotKey>>
    copySymbolicHotKeys(qint64 candidateKeyCode, quint32 candidateModifiers) override;
    [[nodiscard]] ModeToken pushSymbolicHotKeyMode(quint32 options) override;
    void popSymbolicHotKeyMode(ModeToken token) override;

    /// To be told of every change, with the process in front. With another program there the keyboard is
    /// given back, and whoever records is told that the focus is lost: the toolkit tells that 0.1 s later,
    /// which is after the pause that follows a switch, and not at all when the focus is back by then.
    void frontChanged(std::optional<qint64> processIdentifier);

private:
    [[nodiscard]] bool _heldElsewhere(qint64 keyCode, quint32 modifiers) const;

    Desktop _desktop;
    ModeToken _lastToken = 0;
    QSet<ModeToken> _modes;
};

} // namespace tarnwick
