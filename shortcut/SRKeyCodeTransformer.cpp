// SPDX-License-Identifier: MIT
#include "shortcut/SRKeyCodeTransformer.h"

#include "shortcut/CurrentLayout.h"
#include "shortcut/KeyboardLayout.h"
#include "shortcut/Localized.h"
#include "shortcut/Numbers.h"

#include <QHash>
#include <QList>

#include <optional>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

struct SpecialKey
{
    qint16 code;
    const char16_t* string;
};

/// Keys whose name is the same on every layout, the space bar aside: its name is translated.
constexpr SpecialKey SpecialKeys[] = {
    {122, u"F1"},     {120, u"F2"},  {99, u"F3"},   {118, u"F4"},  {96, u"F5"},
    {97, u"F6"},      {98, u"F7"},   {100, u"F8"},  {101, u"F9"},  {109, u"F10"},
    {103, u"F11"},    {111, u"F12"}, {105, u"F13"}, {107, u"F14"}, {113, u"F15"},
    {106, u"F16"},    {64, u"F17"},  {79, u"F18"},  {80, u"F19"},  {51, u"\u232B"}, // delete
    {117, u"\u2326"},                                                               // forward delete
    {71, u"\u2327"},                                                                // keypad clear
    {123, u"\u2190"},                                                               // left arrow
    {124, u"\u2192"},                                                               // right arrow
    {126, u"\u2191"},                                                               // up arrow
    {125, u"\u2193"},                                                               // down arrow
    {119, u"\u2198"},                                                               // end
    {115, u"\u2196"},                                                               // home
    {53, u"\u238B"},                                                                // escape
    {121, u"\u21DF"},                                                               // page down
    {116, u"\u21DE"},                                                               // page up
    {36, u"\u21A9"},                                                                // return
    {76, u"\u2305"},                                                                // keypad enter
    {48, u"\u21E5"},                                                                // tab
    {114, u"?"}, // help: the question mark on purpose
};

constexpr qint16 SpaceBar = 49;
constexpr int KeyCodes = 128;

/// Made once, at the first use of the class.
struct Tables
{
    QHash<qint16, QString> keyCodeToStringDict;
    QList<qint16> padKeysArray;
    QHash<QString, int> stringToKeyCodeDict;
};

Tables makeTables()
{
    Tables tables;
    for (const SpecialKey& key : SpecialKeys)
        tables.keyCodeToStringDict.insert(key.code, QString::fromUtf16(key.string));
    tables.keyCodeToStringDict.insert(SpaceBar, localized("Space"));
    tables.padKeysArray = {65, 67, 69, 75, 78, 81, 82, 83, 84, 85, 86, 87, 88, 89, 91, 92};
    return tables;
}

Tables& tables()
{
    static Tables tables = makeTables();
    return tables;
}

} // namespace

SRKeyCodeTransformer::SRKeyCodeTransformer()
{
    initialize();
}

void SRKeyCodeTransformer::initialize()
{
    static bool initialized = false;
    if (initialized)
        return;
    initialized = true;
    regenerateStringToKeyCodeMapping();
    KeyboardLayout::shared().addSelectedKeyboardInputSourceChangedObserver(
        [] { regenerateStringToKeyCodeMapping(); });
    setValueTransformerForName(std::make_shared<SRKeyCodeTransformer>(), u"SRKeyCodeTransformer"_s);
}

void SRKeyCodeTransformer::regenerateStringToKeyCodeMapping()
{
    const SRKeyCodeTransformer transformer;
    auto& stringToKeyCodeDict = tables().stringToKeyCodeDict;
    stringToKeyCodeDict.clear();
    for (int code = 0; code < KeyCodes; ++code) {
        const QString string = transformer.transformedValue(code).toString();
        if (!string.isEmpty())
            stringToKeyCodeDict.insert(string, code);
    }
}

QVariant SRKeyCodeTransformer::transformedValue(const QVariant& value) const
{
    const auto number = wholeNumber(value);
    const auto code = static_cast<qint16>(number.value_or(-1)); // key codes are 16 bits wide
    if (code < 0)
        return {};
    const auto special = tables().keyCodeToStringDict.constFind(code);
    if (special != tables().keyCodeToStringDict.cend())
        return *special;

    const auto unit = unitForKeyOnCurrentLayout(static_cast<quint16>(code), 0);
    if (!unit)
        return {};
    const QString string = unit->toUpper();
    return tables().padKeysArray.contains(code) ? filledIn(localized("Pad %@"), {string}) : string;
}

QVariant SRKeyCodeTransformer::reverseTransformedValue(const QVariant& value) const
{
    if (value.typeId() != QMetaType::QString)
        return {};
    const auto found = tables().stringToKeyCodeDict.constFind(value.toString());
    return found == tables().stringToKeyCodeDict.cend() ? QVariant() : QVariant(*found);
}

} // namespace tarnwick
