// SPDX-License-Identifier: MIT
#include "shortcut/RecorderSettings.h"

#include "shortcut/Archive.h"
#include "shortcut/ModifierFlags.h"
#include "shortcut/Numbers.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

std::optional<QString> stringIn(const QVariantMap& dictionary, const QString& key)
{
    const QVariant value = dictionary.value(key);
    return value.typeId() == QMetaType::QString ? std::optional(value.toString()) : std::nullopt;
}

quint64 flagsIn(const QVariantMap& dictionary)
{
    if (dictionary.contains(u"modifierFlags"_s))
        return static_cast<quint64>(wholeNumber(dictionary.value(u"modifierFlags"_s)).value_or(0));
    return SRCarbonToCocoaFlags(
        static_cast<quint64>(wholeNumber(dictionary.value(u"modifiers"_s)).value_or(0)));
}

} // namespace

quint64 RecorderSettings::filtered(quint64 flags) const
{
    return AllModifiers & (requiredFlags | (flags & allowedFlags));
}

bool RecorderSettings::valid(quint64 flags) const
{
    return allowsKeyOnly || (flags & AllModifiers) != 0;
}

void RecorderSettings::encode(Archive& archive) const
{
    const QCborValue name = autosaveName.isNull() ? QCborValue(nullptr) : QCborValue(autosaveName);
    const auto code = static_cast<qint16>(keyCombo.code);
    const auto flags = static_cast<qint64>(keyCombo.flags);
    const auto allowed = static_cast<qint64>(allowedFlags);
    const auto required = static_cast<qint64>(requiredFlags);
    if (!archive.allowsKeyedCoding()) {
        for (const QCborValue& value :
             {name, QCborValue(code), QCborValue(flags), QCborValue(allowed), QCborValue(required)})
            archive.encode(value);
        return;
    }
    archive.encode(name, u"autosaveName");
    archive.encode(code, u"keyComboCode");
    archive.encode(flags, u"keyComboFlags");
    archive.encode(allowed, u"allowedFlags");
    archive.encode(required, u"requiredFlags");
    if (hasKeyChars) {
        archive.encode(keyChars.value_or(QString()), u"keyChars");
        archive.encode(keyCharsIgnoringModifiers.value_or(QString()), u"keyCharsIgnoringModifiers");
    }
    archive.encode(allowsKeyOnly, u"allowsKeyOnly");
    archive.encode(escapeKeysRecord, u"escapeKeysRecord");
    archive.encode(isAnimating, u"isAnimating");
    archive.encode(style, u"style");
}

void RecorderSettings::decode(Archive& archive)
{
    if (archive.allowsKeyedCoding())
        _decodeKeyed(archive);
    else
        _decodeUnkeyed(archive);
    allowedFlags |= FunctionKeyMask; // archives from before function keys could be recorded lack it
}

void RecorderSettings::_decodeKeyed(const Archive& archive)
{
    autosaveName = archive.decodeString(u"autosaveName").value_or(QString());
    keyCombo.code = static_cast<qint16>(archive.decodeInteger(u"keyComboCode"));
    keyCombo.flags = static_cast<quint64>(archive.decodeInteger(u"keyComboFlags"));
    allowedFlags = static_cast<quint64>(archive.decodeInteger(u"allowedFlags"));
    requiredFlags = static_cast<quint64>(archive.decodeInteger(u"requiredFlags"));
    keyChars = archive.decodeString(u"keyChars");
    keyCharsIgnoringModifiers = archive.decodeString(u"keyCharsIgnoringModifiers");
    hasKeyChars = keyChars.has_value();
    allowsKeyOnly = archive.decodeBool(u"allowsKeyOnly");
    escapeKeysRecord = archive.decodeBool(u"escapeKeysRecord");
    isAnimating = archive.decodeBool(u"isAnimating");
    setStyle(static_cast<qint16>(archive.decodeInteger(u"style")));
}

void RecorderSettings::_decodeUnkeyed(Archive& archive)
{
    autosaveName = archive.decodeString().value_or(QString());
    keyCombo.code = static_cast<qint16>(archive.decodeInteger());
    keyCombo.flags = static_cast<quint64>(archive.decodeInteger());
    allowedFlags = static_cast<quint64>(archive.decodeInteger());
    requiredFlags = static_cast<quint64>(archive.decodeInteger());
}

QVariantMap RecorderSettings::dictionary() const
{
    QVariantMap dictionary{
        {u"keyCode"_s, static_cast<qint16>(keyCombo.code)},
        {u"modifierFlags"_s, keyCombo.flags},
        {u"modifiers"_s, SRCocoaToCarbonFlags(keyCombo.flags)},
    };
    if (hasKeyChars) {
        dictionary.insert(u"keyChars"_s, keyChars.value_or(QString()));
        dictionary.insert(u"keyCharsIgnoringModifiers"_s, keyCharsIgnoringModifiers.value_or(QString()));
    }
    return dictionary;
}

void RecorderSettings::setDictionary(const QVariantMap& dictionary)
{
    keyCombo.code = static_cast<qint16>(wholeNumber(dictionary.value(u"keyCode"_s)).value_or(0));
    keyCombo.flags = filtered(flagsIn(dictionary));
    keyChars = stringIn(dictionary, u"keyChars"_s);
    keyCharsIgnoringModifiers = stringIn(dictionary, u"keyCharsIgnoringModifiers"_s);
    hasKeyChars = keyChars.has_value();
}

} // namespace tarnwick
