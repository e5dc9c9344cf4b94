// SPDX-License-Identifier: MIT
#include "platform/macos/CFDefaultsStore.h"

#include "platform/macos/CfText.h"
#include "platform/macos/CfValue.h"

namespace tarnwick {

CFDefaultsStore::~CFDefaultsStore()
{
    CFDefaultsStore::synchronize();
}

std::optional<QVariant> CFDefaultsStore::value(const QString& key) const
{
    if (key.isEmpty())
        return std::nullopt;
    const CfOwned<CFPropertyListRef> stored(
        CFPreferencesCopyAppValue(cfString(key).get(), kCFPreferencesCurrentApplication));
    if (!stored)
        return std::nullopt;
    return variantOf(stored.get());
}

void CFDefaultsStore::setValue(const QString& key, const QVariant& value)
{
    const auto stored = cfValue(value);
    if (!key.isEmpty() && stored)
        CFPreferencesSetAppValue(cfString(key).get(), stored.get(), kCFPreferencesCurrentApplication);
}

void CFDefaultsStore::removeValue(const QString& key)
{
    if (!key.isEmpty())
        CFPreferencesSetAppValue(cfString(key).get(), nullptr, kCFPreferencesCurrentApplication);
}

void CFDefaultsStore::synchronize()
{
    CFPreferencesAppSynchronize(kCFPreferencesCurrentApplication);
}

} // namespace tarnwick
