// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/LinuxSymbolicHotKeys.h"

#include "platform/linux/keys/KeyCodes.h"
#include "platform/linux/keys/XkbKeymap.h"

#include <QFocusEvent>
#include <QGuiApplication>
#include <QWindow>

#include <utility>

namespace tarnwick {

namespace {

constexpr qint64 LargestKeyCode = 127;
constexpr quint32 Shift = 0x200;
constexpr quint32 Modifiers = 0x100 | Shift | 0x800 | 0x1000;

/// Nothing when no key of this keyboard gives it.
std::optional<SymbolicHotKey> hotKeyOf(const DesktopShortcut& shortcut, const XkbKeymap& keymap)
{
    quint16 keyCode = shortcut.keyCode;
    quint32 modifiers = shortcut.modifiers;
    if (keyCode == 0) {
        const auto key = keymap.keyOf(shortcut.keysym);
        if (!key)
            return std::nullopt;
        keyCode = key->code;
        if (key->shift)
            modifiers |= Shift;
    }
    const auto code = virtualKeyCodeOf(keyCode);
    if (!code)
        return std::nullopt;
    return SymbolicHotKey{true, qint16(*code), qint32(modifiers)};
}

} // namespace

LinuxSymbolicHotKeys::LinuxSymbolicHotKeys(Desktop desktop) : _desktop(std::move(desktop))
{
    // Without the focus there is nothing to record, and the keyboard belongs to others.
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* window) {
        if (!window)
            _desktop.releaseKeyboard();
    });
}

LinuxSymbolicHotKeys::~LinuxSymbolicHotKeys()
{
    _desktop.releaseKeyboard();
}

std::optional<QList<SymbolicHotKey>> LinuxSymbolicHotKeys::copySymbolicHotKeys(qint64 candidateKeyCode,
                                                                               quint32 candidateModifiers)
{
    const auto shortcuts = _desktop.stores.read(_desktop.currentDesktops);
    if (!shortcuts)
        return std::nullopt;
    QList<SymbolicHotKey> hotKeys;
    if (const auto keymap = _desktop.keymap()) {
        for (const DesktopShortcut& shortcut : *shortcuts) {
            if (const auto hotKey = hotKeyOf(shortcut, *keymap))
                hotKeys.append(*hotKey);
        }
    }
    if (_heldElsewhere(candidateKeyCode, candidateModifiers))
        hotKeys.append({true, qint16(candidateKeyCode), qint32(candidateModifiers & Modifiers)});
    return hotKeys;
}

SymbolicHotKeys::ModeToken LinuxSymbolicHotKeys::pushSymbolicHotKeyMode(quint32 options)
{
    if (!(options & AllHotKeysDisabled) || !_desktop.takeKeyboard())
        return 0;
    _modes.insert(++_lastToken);
    return _lastToken;
}

void LinuxSymbolicHotKeys::popSymbolicHotKeyMode(ModeToken token)
{
    if (_modes.remove(token) && _modes.isEmpty())
        _desktop.releaseKeyboard();
}

void LinuxSymbolicHotKeys::frontChanged(std::optional<qint64> processIdentifier)
{
    if (_modes.isEmpty() || processIdentifier == QCoreApplication::applicationPid())
        return;
    _desktop.releaseKeyboard();
    QFocusEvent lost(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    if (QObject* recording = QGuiApplication::focusObject())
        QCoreApplication::sendEvent(recording, &lost);
}

bool LinuxSymbolicHotKeys::_heldElsewhere(qint64 keyCode, quint32 modifiers) const
{
    return keyCode >= 0 && keyCode <= LargestKeyCode &&
           _desktop.heldElsewhere(quint32(keyCode), modifiers & Modifiers);
}

} // namespace tarnwick

#include "moc_LinuxSymbolicHotKeys.cpp"
