// SPDX-License-Identifier: MIT
#include "platform/qt/menu/MenuKeys.h"

#include "foundation/Event.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QWidget>

#include <limits>

namespace tarnwick {

namespace {

struct Modifier
{
    Qt::KeyboardModifier key;
    quint16 bit;
    quint64 menuFlag;
};
/// Control is Command to a menu, Alt is Option, Super is Control.
constexpr Modifier ModifiersOfMenus[] = {
    {Qt::ShiftModifier, 1, ShiftKeyMask},
    {Qt::ControlModifier, 2, CommandKeyMask},
    {Qt::AltModifier, 4, AlternateKeyMask},
    {Qt::MetaModifier, 8, ControlKeyMask},
};
constexpr quint16 BitsOfMenus = 1 | 2 | 4 | 8;
constexpr quint16 OtherModifierBit = 16;

quint16 bitsOf(const MenuKeys::Press& press)
{
    quint16 bits = press.isModifier ? OtherModifierBit : 0;
    for (const Modifier& modifier : ModifiersOfMenus)
        bits |= press.modifier.testFlag(modifier.key) ? modifier.bit : 0;
    return bits;
}

} // namespace

void MenuKeys::begin()
{
    end();
    _bitsOfKeys.clear();
    _keys = PopUpKeys({[this](quint8 code) { return _bitsOfKeys.value(code); }, BitsOfMenus}, {});
}

void MenuKeys::open()
{
    _open = true;
    _handOn();
}

void MenuKeys::end()
{
    _open = false;
    _waiting.clear();
    _awaitExposure(nullptr);
}

void MenuKeys::press(const Press& press)
{
    if (press.code > std::numeric_limits<quint8>::max())
        return;
    const auto code = static_cast<quint8>(press.code);
    _bitsOfKeys.insert(code, bitsOf(press));
    switch (_keys.press(code, static_cast<quint32>(press.time))) {
    case PopUpKeys::Way::Nowhere:
        return;
    case PopUpKeys::Way::ToAlternates:
        Q_EMIT menuModifierFlagsChanged();
        return;
    case PopUpKeys::Way::ToMenu:
        break;
    }
    // A key that is held down while nothing can be seen repeats nothing.
    if (press.repeats && !_waiting.isEmpty())
        return;
    _waiting.append({press, _modifiers()});
    _handOn();
}

void MenuKeys::release(quint32 code, quint64 time)
{
    if (code > std::numeric_limits<quint8>::max())
        return;
    const quint16 before = _keys.modifiersDown();
    _keys.release(static_cast<quint8>(code), static_cast<quint32>(time));
    if (_keys.modifiersDown() != before)
        Q_EMIT menuModifierFlagsChanged();
}

Qt::KeyboardModifiers MenuKeys::_modifiers() const
{
    Qt::KeyboardModifiers modifiers;
    for (const Modifier& modifier : ModifiersOfMenus)
        modifiers.setFlag(modifier.key, (_keys.modifiersDown() & modifier.bit) != 0);
    return modifiers;
}

quint64 MenuKeys::menuModifierFlags() const
{
    quint64 flags = 0;
    for (const Modifier& modifier : ModifiersOfMenus)
        flags |= (_keys.modifiersDown() & modifier.bit) != 0 ? modifier.menuFlag : 0;
    return flags;
}

void MenuKeys::_handOn()
{
    if (_handingOn)
        return; // what a key has led to: the rest follows it
    const QScopedValueRollback handingOn(_handingOn, true);
    while (_open && !_waiting.isEmpty()) {
        QWidget* popUp = QApplication::activePopupWidget();
        QWindow* window = popUp ? popUp->windowHandle() : nullptr;
        if (!window) {
            _waiting.clear();
            return;
        }
        if (!window->isExposed()) {
            _awaitExposure(window);
            return;
        }
        const auto [press, modifiers] = _waiting.takeFirst();
        QKeyEvent event(QEvent::KeyPress, press.key, modifiers, press.code, press.keysym, 0, press.text,
                        press.repeats);
        event.setTimestamp(press.time);
        QWidget* within = popUp->focusWidget(); // a field
        QCoreApplication::sendEvent(within ? within : popUp, &event);
    }
}

void MenuKeys::_awaitExposure(QWindow* window)
{
    if (window == _awaited)
        return;
    if (_awaited)
        _awaited->removeEventFilter(this);
    _awaited = window;
    if (_awaited)
        _awaited->installEventFilter(this);
}

bool MenuKeys::eventFilter(QObject* watched, QEvent* event)
{
    const bool shown = event->type() == QEvent::Expose && _awaited && _awaited->isExposed();
    // The same when it is closed before: then another one has the keys.
    if (shown || event->type() == QEvent::Hide) {
        _awaitExposure(nullptr);
        QMetaObject::invokeMethod(this, &MenuKeys::_handOn, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

} // namespace tarnwick

#include "moc_MenuKeys.cpp"
