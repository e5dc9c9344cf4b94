// SPDX-License-Identifier: MIT
#include "platform/macos/hotkeys/CarbonSymbolicHotKeys.h"

#include "platform/macos/system/CfOwned.h"

#include <Carbon/Carbon.h>

namespace tarnwick {
namespace {

static_assert(quint32{kHIHotKeyModeAllDisabled} == quint32{SymbolicHotKeys::AllHotKeysDisabled});

/// The number under `key`, in the width of `Number`; 0 when there is none.
template <typename Number>
Number numberIn(CFDictionaryRef entry, CFStringRef key, CFNumberType type)
{
    Number number = 0;
    const auto* value = static_cast<CFTypeRef>(CFDictionaryGetValue(entry, key));
    if (value && CFGetTypeID(value) == CFNumberGetTypeID())
        CFNumberGetValue(static_cast<CFNumberRef>(value), type, &number);
    return number;
}

SymbolicHotKey hotKeyOf(CFDictionaryRef entry)
{
    SymbolicHotKey hotKey;
    // Only the boolean object itself counts as enabled: a number 1 does not.
    hotKey.enabled = CFDictionaryGetValue(entry, kHISymbolicHotKeyEnabled) == kCFBooleanTrue;
    hotKey.code = numberIn<qint16>(entry, kHISymbolicHotKeyCode, kCFNumberSInt16Type);
    hotKey.modifiers = numberIn<qint32>(entry, kHISymbolicHotKeyModifiers, kCFNumberSInt32Type);
    return hotKey;
}

} // namespace

std::optional<QList<SymbolicHotKey>>
CarbonSymbolicHotKeys::copySymbolicHotKeys(qint64 /*candidateKeyCode*/, quint32 /*candidateModifiers*/)
{
    CFArrayRef list = nullptr;
    if (CopySymbolicHotKeys(&list) != noErr)
        return std::nullopt;
    const CfOwned<CFArrayRef> owned(list);
    QList<SymbolicHotKey> hotKeys;
    const CFIndex count = list ? CFArrayGetCount(list) : 0;
    for (CFIndex i = 0; i < count; ++i) {
        if (const void* entry = CFArrayGetValueAtIndex(list, i))
            hotKeys.append(hotKeyOf(static_cast<CFDictionaryRef>(entry)));
    }
    return hotKeys;
}

SymbolicHotKeys::ModeToken CarbonSymbolicHotKeys::pushSymbolicHotKeyMode(quint32 options)
{
    return reinterpret_cast<ModeToken>(PushSymbolicHotKeyMode(options));
}

void CarbonSymbolicHotKeys::popSymbolicHotKeyMode(ModeToken token)
{
    if (token != 0)
        PopSymbolicHotKeyMode(reinterpret_cast<void*>(token)); // NOLINT(performance-no-int-to-ptr): was one
}

} // namespace tarnwick
