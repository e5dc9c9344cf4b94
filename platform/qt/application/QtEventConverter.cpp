// SPDX-License-Identifier: MIT
#include "platform/qt/application/QtEventConverter.h"

#include "platform/qt/menu/KeyCharacters.h"

#include <QEnterEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include <utility>

namespace tarnwick {

namespace {

/// Whether events of the key have the function-key bit.
bool isFunctionKey(int key)
{
    return (key >= Qt::Key_F1 && key <= Qt::Key_F35) || (key >= Qt::Key_Home && key <= Qt::Key_PageDown);
}
static_assert(Qt::Key_Home < Qt::Key_Up && Qt::Key_PageDown == Qt::Key_Home + 7, "arrows are in between");

/// The modifier that the key itself is; 0 for any other key.
quint64 modifierOfKey(int key)
{
    switch (key) {
    case Qt::Key_Shift:
        return ShiftKeyMask;
    case Qt::Key_Control:
        return ControlKeyMask;
    case Qt::Key_Alt:
        return AlternateKeyMask;
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
        return CommandKeyMask;
    default:
        return 0;
    }
}

/// The modifier keys are these, whatever the layout makes of them under others: with Alt held, Shift may
/// choose the next layout.
bool isModifierKey(quint16 keyCode)
{
    constexpr quint16 RightCommand = 54;
    constexpr quint16 RightControl = 62;
    return keyCode >= RightCommand && keyCode <= RightControl;
}

bool changesFlags(int key)
{
    return modifierOfKey(key) != 0 || key == Qt::Key_CapsLock || key == Qt::Key_AltGr ||
           key == Qt::Key_NumLock || key == Qt::Key_Hyper_L || key == Qt::Key_Hyper_R ||
           key == Qt::Key_Mode_switch;
}

quint64 flagsOf(Qt::KeyboardModifiers modifiers)
{
    quint64 flags = 0;
    if (modifiers & Qt::ShiftModifier)
        flags |= ShiftKeyMask;
    if (modifiers & Qt::ControlModifier)
        flags |= ControlKeyMask;
    if (modifiers & Qt::AltModifier)
        flags |= AlternateKeyMask;
    if (modifiers & Qt::MetaModifier)
        flags |= CommandKeyMask;
    return flags;
}

/// As they were before the event: of a modifier key Qt tells them with its own one turned round, whether or
/// not the key changes it on this layout.
Qt::KeyboardModifiers modifiersBefore(const QKeyEvent& key)
{
    switch (key.key()) {
    case Qt::Key_Shift:
        return key.modifiers() ^ Qt::ShiftModifier;
    case Qt::Key_Control:
        return key.modifiers() ^ Qt::ControlModifier;
    case Qt::Key_Alt:
        return key.modifiers() ^ Qt::AltModifier;
    case Qt::Key_Meta:
        return key.modifiers() ^ Qt::MetaModifier;
    default:
        return key.modifiers();
    }
}

Event::Type pressed(Qt::MouseButton button)
{
    if (button == Qt::LeftButton)
        return Event::Type::LeftMouseDown;
    return button == Qt::RightButton ? Event::Type::RightMouseDown : Event::Type::OtherMouseDown;
}

Event::Type released(Qt::MouseButton button)
{
    if (button == Qt::LeftButton)
        return Event::Type::LeftMouseUp;
    return button == Qt::RightButton ? Event::Type::RightMouseUp : Event::Type::OtherMouseUp;
}

Event::Type moved(Qt::MouseButtons held)
{
    if (held & Qt::LeftButton)
        return Event::Type::LeftMouseDragged;
    if (held & Qt::RightButton)
        return Event::Type::RightMouseDragged;
    return held == Qt::NoButton ? Event::Type::MouseMoved : Event::Type::OtherMouseDragged;
}

} // namespace

QtEventConverter::QtEventConverter(Keyboard keyboard) : _keyboard(std::move(keyboard)) {}

std::optional<Event> QtEventConverter::convert(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
        return _convertKey(static_cast<const QKeyEvent&>(event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        const auto& mouse = static_cast<const QMouseEvent&>(event);
        return _pointerEvent(pressed(mouse.button()), mouse);
    }
    case QEvent::MouseButtonRelease: {
        const auto& mouse = static_cast<const QMouseEvent&>(event);
        return _pointerEvent(released(mouse.button()), mouse);
    }
    case QEvent::MouseMove: {
        const auto& mouse = static_cast<const QMouseEvent&>(event);
        return _pointerEvent(moved(mouse.buttons()), mouse);
    }
    case QEvent::Enter:
        return _pointerEvent(Event::Type::MouseEntered, static_cast<const QEnterEvent&>(event));
    case QEvent::Leave: {
        Event left;
        left.type = Event::Type::MouseExited;
        return left;
    }
    case QEvent::ApplicationStateChange:
        _unseen.clear(); // keys go up elsewhere from now on, or have gone down there
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

quint64 QtEventConverter::_flagsOf(Qt::KeyboardModifiers modifiers) const
{
    quint64 flags = flagsOf(modifiers);
    for (const quint64 flag : _unseen)
        flags |= flag;
    return flags;
}

Event QtEventConverter::_pointerEvent(Event::Type type, const QSinglePointEvent& pointer) const
{
    Event event;
    event.type = type;
    event.modifierFlags = _flagsOf(pointer.modifiers());
    event.locationInWindow =
        pointer.points().isEmpty() ? QPointF() : pointer.points().first().scenePosition();
    return event;
}

Event QtEventConverter::_convertKey(const QKeyEvent& key)
{
    Event event;
    event.keyCode = _keyboard.keyCode(key).value_or(NoKeyCode);
    if (isModifierKey(event.keyCode) || changesFlags(key.key())) {
        _changeFlags(key, event);
        return event;
    }
    event.modifierFlags = _flagsOf(key.modifiers());
    event.type = key.type() == QEvent::KeyRelease ? Event::Type::KeyUp : Event::Type::KeyDown;
    _addCharacters(key, event);
    return event;
}

void QtEventConverter::_changeFlags(const QKeyEvent& key, Event& event)
{
    const quint64 named = modifierOfKey(key.key());
    const bool known = _keyboard.modifier && isModifierKey(event.keyCode);
    const quint64 own = known ? _keyboard.modifier(event.keyCode) : named;
    const bool released = key.type() == QEvent::KeyRelease;
    if (released)
        _unseen.remove(event.keyCode);
    else if (own != named)
        _unseen.insert(event.keyCode, own);
    event.type = Event::Type::FlagsChanged;
    event.modifierFlags = _flagsOf(modifiersBefore(key));
    if (released)
        event.modifierFlags &= ~own;
    else
        event.modifierFlags |= own;
}

void QtEventConverter::_addCharacters(const QKeyEvent& key, Event& event) const
{
    // A keypad key that types its digit is no arrow: Qt then names the digit as the key.
    if (const auto character = characterOfKey(key.key())) {
        event.characters = QString(QChar(*character));
        event.charactersIgnoringModifiers = event.characters;
        if (isFunctionKey(key.key()))
            event.modifierFlags |= FunctionKeyMask;
        return;
    }
    event.charactersIgnoringModifiers = _keyboard.letter(event.keyCode, event.modifierFlags & ShiftKeyMask);
    const bool types = !key.text().isEmpty() && key.text().at(0).isPrint();
    if (event.charactersIgnoringModifiers.isEmpty() && types)
        event.charactersIgnoringModifiers = key.text();
    const bool alone = !(event.modifierFlags & (ControlKeyMask | AlternateKeyMask | CommandKeyMask));
    event.characters = alone && types ? key.text() : event.charactersIgnoringModifiers;
}

} // namespace tarnwick
