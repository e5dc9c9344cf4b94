// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/FocusKeyFeed.h"

#include <QGuiApplication>
#include <QKeyEvent>

#include <algorithm>
#include <array>

namespace tarnwick {

namespace {

constexpr std::array ModifierKeys{Qt::Key_Shift,      Qt::Key_Control,  Qt::Key_Meta,    Qt::Key_Alt,
                                  Qt::Key_AltGr,      Qt::Key_CapsLock, Qt::Key_NumLock, Qt::Key_ScrollLock,
                                  Qt::Key_Super_L,    Qt::Key_Super_R,  Qt::Key_Hyper_L, Qt::Key_Hyper_R,
                                  Qt::Key_Mode_switch};

Qt::KeyboardModifiers modifierOf(int key)
{
    switch (key) {
    case Qt::Key_Shift:
        return Qt::ShiftModifier;
    case Qt::Key_Control:
        return Qt::ControlModifier;
    case Qt::Key_Alt:
        return Qt::AltModifier;
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
        return Qt::MetaModifier;
    default:
        return Qt::NoModifier;
    }
}

/// With Control down, since the start perhaps, a letter types a control character.
QString textOf(const QKeyEvent& event)
{
    const QString text = event.text();
    const bool isControl = !text.isEmpty() && text.front().category() == QChar::Other_Control;
    const bool isLetter = event.key() > Qt::Key_Space && event.key() <= Qt::Key_ydiaeresis;
    return isControl && isLetter ? QString(QChar(event.key())).toLower() : text;
}

} // namespace

void FocusKeyFeed::begin()
{
    qGuiApp->installEventFilter(this);
}

void FocusKeyFeed::end()
{
    if (qGuiApp)
        qGuiApp->removeEventFilter(this);
}

MenuKeys::Press FocusKeyFeed::pressOf(const QKeyEvent& event)
{
    const bool isModifier = std::ranges::find(ModifierKeys, event.key()) != ModifierKeys.end();
    return {.code = event.nativeScanCode(),
            .time = event.timestamp(),
            .key = event.key(),
            .text = textOf(event),
            .keysym = event.nativeVirtualKey(),
            .repeats = event.isAutoRepeat(),
            .isModifier = isModifier,
            .modifier = modifierOf(event.key())};
}

bool FocusKeyFeed::eventFilter(QObject* watched, QEvent* event)
{
    // Those that go to widgets are the menu's, which it has from us.
    if (!watched->isWindowType())
        return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress)
        _keys.press(pressOf(*static_cast<QKeyEvent*>(event)));
    else if (event->type() == QEvent::KeyRelease && !static_cast<QKeyEvent*>(event)->isAutoRepeat())
        _keys.release(static_cast<QKeyEvent*>(event)->nativeScanCode(),
                      static_cast<QKeyEvent*>(event)->timestamp());
    else
        return QObject::eventFilter(watched, event);
    return true;
}

} // namespace tarnwick

#include "moc_FocusKeyFeed.cpp"
