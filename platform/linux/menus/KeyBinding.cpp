// SPDX-License-Identifier: MIT
#include "platform/linux/menus/KeyBinding.h"

#include "platform/linux/keys/Accelerator.h"
#include "platform/linux/keys/KeysymNames.h"

#include <QList>

namespace tarnwick {

namespace {

/// A keysym's name, or a character itself.
xkb_keysym_t keysymWritten(const QString& text)
{
    const QList<uint> characters = text.toUcs4();
    return characters.size() == 1 ? xkb_utf32_to_keysym(characters.first()) : keysymNamed(text);
}

} // namespace

std::optional<KeyBinding> KeyBinding::parseAccelerator(const QString& text, Meta meta)
{
    const auto accelerator = Accelerator::parse(text);
    if (!accelerator)
        return std::nullopt;
    const KeyBinding binding{
        accelerator->control, accelerator->alt || (accelerator->meta && meta == Meta::IsAlt),
        accelerator->shift, accelerator->super || (accelerator->meta && meta == Meta::IsSuper),
        keysymWritten(accelerator->key)};
    return binding.key == XKB_KEY_NoSymbol ? std::nullopt : std::optional(binding);
}

} // namespace tarnwick
