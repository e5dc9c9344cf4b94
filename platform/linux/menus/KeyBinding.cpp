// SPDX-License-Identifier: MIT
#include "platform/linux/menus/KeyBinding.h"

#include "platform/linux/input/KeysymNames.h"

#include <QList>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

/// The flag of `binding` that a word in angle brackets names; null for modifiers that no menu can show.
bool* modifierNamed(const QString& word, KeyBinding& binding)
{
    static const std::array<std::pair<QString, bool KeyBinding::*>, 8> names{{
        {u"primary"_s, &KeyBinding::control},
        {u"control"_s, &KeyBinding::control},
        {u"ctrl"_s, &KeyBinding::control},
        {u"shift"_s, &KeyBinding::shift},
        {u"alt"_s, &KeyBinding::alt},
        {u"mod1"_s, &KeyBinding::alt},
        {u"super"_s, &KeyBinding::super},
        {u"meta"_s, &KeyBinding::super},
    }};
    for (const auto& [known, flag] : names)
        if (word.compare(known, Qt::CaseInsensitive) == 0)
            return &(binding.*flag);
    return nullptr;
}

/// A keysym's name, or a character itself.
xkb_keysym_t keysymWritten(const QString& text)
{
    const QList<uint> characters = text.toUcs4();
    return characters.size() == 1 ? xkb_utf32_to_keysym(characters.first()) : keysymNamed(text);
}

} // namespace

std::optional<KeyBinding> KeyBinding::parseAccelerator(const QString& text)
{
    KeyBinding binding;
    qsizetype position = 0;
    while (position < text.size() && text[position] == u'<') {
        const qsizetype end = text.indexOf(u'>', position);
        bool* modifier =
            end < 0 ? nullptr : modifierNamed(text.mid(position + 1, end - position - 1), binding);
        if (!modifier)
            return std::nullopt;
        *modifier = true;
        position = end + 1;
    }
    binding.key = keysymWritten(text.mid(position));
    return binding.key == XKB_KEY_NoSymbol ? std::nullopt : std::optional(binding);
}

} // namespace tarnwick
