// SPDX-License-Identifier: MIT
#include "platform/macos/hotkeys/TISKeyboardLayout.h"

#include "platform/macos/system/CfOwned.h"

#include <Carbon/Carbon.h>
#include <array>
#include <utility>

namespace tarnwick {
namespace {

static_assert(kUCKeyActionDisplay == 3);

class KeyLayout final : public KeyboardLayout::UnicodeKeyLayout
{
public:
    KeyLayout(CfOwned<TISInputSourceRef> source, CFDataRef layout)
        : _source(std::move(source)), _layout(layout)
    {
    }

    [[nodiscard]] std::optional<QString> keyTranslate(quint16 virtualKeyCode, quint16 keyAction,
                                                      quint32 modifierKeyState, quint32 keyboardType,
                                                      quint32 options, quint32& deadKeyState) const override
    {
        std::array<UniChar, 4> units{};
        UniCharCount length = 0;
        UInt32 deadKeys = deadKeyState;
        const auto* table = reinterpret_cast<const UCKeyboardLayout*>(CFDataGetBytePtr(_layout));
        if (!table)
            return std::nullopt;
        if (UCKeyTranslate(table, virtualKeyCode, keyAction, modifierKeyState, keyboardType, options,
                           &deadKeys, units.size(), &length, units.data()) != noErr)
            return std::nullopt;
        deadKeyState = deadKeys;
        return QString(reinterpret_cast<const QChar*>(units.data()), static_cast<qsizetype>(length));
    }

private:
    CfOwned<TISInputSourceRef> _source;
    CFDataRef _layout; ///< belongs to the source
};

void inputSourceChanged(CFNotificationCenterRef /*center*/, void* observer, CFNotificationName /*name*/,
                        const void* /*object*/, CFDictionaryRef /*userInfo*/)
{
    (*static_cast<std::function<void()>*>(observer))();
}

} // namespace

std::unique_ptr<KeyboardLayout::UnicodeKeyLayout> TISKeyboardLayout::copyCurrentKeyboardInputSource() const
{
    CfOwned<TISInputSourceRef> source(TISCopyCurrentKeyboardInputSource());
    if (!source)
        return nullptr;
    const auto* layout =
        static_cast<CFDataRef>(TISGetInputSourceProperty(source.get(), kTISPropertyUnicodeKeyLayoutData));
    if (!layout)
        return nullptr;
    return std::make_unique<KeyLayout>(std::move(source), layout);
}

quint8 TISKeyboardLayout::keyboardType() const
{
    return static_cast<quint8>(LMGetKbdType());
}

void TISKeyboardLayout::addSelectedKeyboardInputSourceChangedObserver(std::function<void()> changed)
{
    _observers.push_back(std::move(changed));
    auto* const center = CFNotificationCenterGetDistributedCenter();
    if (!center)
        return;
    // Delivered at once: other notices wait until the program is active, which an agent rarely is.
    CFNotificationCenterAddObserver(center, &_observers.back(), inputSourceChanged,
                                    kTISNotifySelectedKeyboardInputSourceChanged, nullptr,
                                    CFNotificationSuspensionBehaviorDeliverImmediately);
}

} // namespace tarnwick
