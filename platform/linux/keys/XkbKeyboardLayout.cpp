// SPDX-License-Identifier: MIT
#include "platform/linux/keys/XkbKeyboardLayout.h"

#include "platform/linux/keys/KeyCodes.h"

#include <utility>

namespace tarnwick {

namespace {

constexpr quint32 ShiftState = 0x200;
constexpr quint32 OptionState = 0x800;
constexpr qsizetype LongestText = 4;

class XkbKeyLayout final : public KeyboardLayout::UnicodeKeyLayout
{
public:
    explicit XkbKeyLayout(std::shared_ptr<const XkbKeymap> keymap) : _keymap(std::move(keymap)) {}

    [[nodiscard]] std::optional<QString> keyTranslate(quint16 virtualKeyCode, quint16 /*keyAction*/,
                                                      quint32 modifierKeyState, quint32 /*keyboardType*/,
                                                      quint32 /*options*/,
                                                      quint32& /*deadKeyState*/) const override
    {
        const auto keyCode = x11KeyCodeOf(virtualKeyCode);
        if (!keyCode)
            return virtualKeyCode < 128 ? std::optional(QString()) : std::nullopt;
        return _keymap
            ->text(*keyCode, (modifierKeyState & ShiftState) != 0, (modifierKeyState & OptionState) != 0)
            .left(LongestText);
    }

private:
    std::shared_ptr<const XkbKeymap> _keymap;
};

} // namespace

XkbKeyboardLayout::XkbKeyboardLayout() = default;

XkbKeyboardLayout::~XkbKeyboardLayout() = default;

std::unique_ptr<KeyboardLayout::UnicodeKeyLayout> XkbKeyboardLayout::copyCurrentKeyboardInputSource() const
{
    auto current = keymap();
    if (!current)
        return nullptr;
    return std::make_unique<XkbKeyLayout>(std::move(current));
}

quint8 XkbKeyboardLayout::keyboardType() const
{
    return 0; // the map names physical keys alike for every keyboard
}

void XkbKeyboardLayout::addSelectedKeyboardInputSourceChangedObserver(std::function<void()> changed)
{
    _observers.append(std::move(changed));
}

void XkbKeyboardLayout::notifyLater()
{
    if (std::exchange(_notifying, true))
        return;
    QMetaObject::invokeMethod(this, &XkbKeyboardLayout::_notify, Qt::QueuedConnection);
}

void XkbKeyboardLayout::_notify()
{
    _notifying = false;
    const auto observers = _observers;
    for (const auto& observer : observers)
        observer();
}

} // namespace tarnwick

#include "moc_XkbKeyboardLayout.cpp"
