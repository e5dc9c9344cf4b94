// SPDX-License-Identifier: MIT
#include "platform/macos/system/CFDefaultsStore.h"

#include "platform/macos/system/CfText.h"
#include "platform/macos/system/CfValue.h"

namespace tarnwick {
namespace {

/// Null takes the key away.
void set(const QString& key, CFPropertyListRef value)
{
    const CfOwned<CFStringRef> name = key.isEmpty() ? nullptr : cfString(key);
    if (name)
        CFPreferencesSetAppValue(name.get(), value, kCFPreferencesCurrentApplication);
}

} // namespace

CFDefaultsStore::~CFDefaultsStore()
{
    CFDefaultsStore::synchronize();
}

std::optional<QVariant> CFDefaultsStore::value(const QString& key) const
{
    if (key.isEmpty())
        return std::nullopt;
    const CfOwned<CFStringRef> name = cfString(key);
    if (!name)
        return std::nullopt;
    const CfOwned<CFPropertyListRef> stored(
        CFPreferencesCopyAppValue(name.get(), kCFPreferencesCurrentApplication));
    if (!stored)
        return std::nullopt;
    return variantOf(stored.get());
}

void CFDefaultsStore::setValue(const QString& key, const QVariant& value)
{
    if (const auto stored = key.isEmpty() ? nullptr : cfValue(value))
        set(key, stored.get());
}

void CFDefaultsStore::removeValue(const QString& key)
{
    set(key, nullptr);
}

void CFDefaultsStore::synchronize()
{
    CFPreferencesAppSynchronize(kCFPreferencesCurrentApplication);
}

} // namespace tarnwick
