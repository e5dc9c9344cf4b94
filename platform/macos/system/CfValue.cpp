// SPDX-License-Identifier: MIT
#include "platform/macos/system/CfValue.h"

#include "platform/macos/system/CfText.h"

#include <QMetaType>
#include <QString>
#include <QUrl>

#include <utility>
#include <vector>

namespace tarnwick {
namespace {

using OtherKinds = std::function<QVariant(CFTypeRef)>;

QVariant numberOf(CFNumberRef number)
{
    if (CFNumberIsFloatType(number)) {
        double value = 0;
        CFNumberGetValue(number, kCFNumberFloat64Type, &value);
        return value;
    }
    qint64 value = 0;
    CFNumberGetValue(number, kCFNumberSInt64Type, &value);
    return value;
}

QVariantList listOf(CFArrayRef array, const OtherKinds& other)
{
    QVariantList list;
    const CFIndex count = CFArrayGetCount(array);
    list.reserve(count);
    for (CFIndex i = 0; i < count; ++i)
        list.append(variantOf(CFArrayGetValueAtIndex(array, i), other));
    return list;
}

QVariantMap mapOf(CFDictionaryRef dictionary, const OtherKinds& other)
{
    const auto count = static_cast<std::size_t>(CFDictionaryGetCount(dictionary));
    std::vector<const void*> keys(count);
    std::vector<const void*> values(count);
    if (count > 0)
        CFDictionaryGetKeysAndValues(dictionary, keys.data(), values.data());
    QVariantMap map;
    for (std::size_t i = 0; i < count; ++i) {
        if (keys[i] && CFGetTypeID(keys[i]) == CFStringGetTypeID())
            map.insert(textOfString(static_cast<CFStringRef>(keys[i])), variantOf(values[i], other));
    }
    return map;
}

QByteArray descriptionOf(CFTypeRef object)
{
    const CfOwned<CFStringRef> description(CFCopyDescription(object));
    return textOfString(description.get()).toUtf8();
}

template <typename Number>
CfOwned<CFTypeRef> cfNumber(CFNumberType type, Number number)
{
    return CfOwned<CFTypeRef>(CFNumberCreate(kCFAllocatorDefault, type, &number));
}

CfOwned<CFTypeRef> cfDictionary(const QVariantMap& map)
{
    std::vector<CfOwned<CFTypeRef>> owned;
    std::vector<const void*> keys;
    std::vector<const void*> values;
    for (auto each = map.cbegin(); each != map.cend(); ++each) {
        CfOwned<CFTypeRef> value = cfValue(each.value());
        if (!value)
            return nullptr;
        values.push_back(value.get());
        owned.push_back(std::move(value));
        owned.emplace_back(cfString(each.key()).release());
        if (!owned.back())
            return nullptr;
        keys.push_back(owned.back().get());
    }
    return CfOwned<CFTypeRef>(
        CFDictionaryCreate(kCFAllocatorDefault, keys.data(), values.data(), static_cast<CFIndex>(keys.size()),
                           &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
}

CfOwned<CFTypeRef> cfList(const QVariantList& list)
{
    std::vector<CfOwned<CFTypeRef>> objects;
    for (const QVariant& each : list) {
        objects.push_back(cfValue(each));
        if (!objects.back())
            return nullptr;
    }
    return CfOwned<CFTypeRef>(cfArray(objects).release());
}

} // namespace

QVariant variantOf(CFTypeRef object, const OtherKinds& other)
{
    if (!object)
        return {};
    if (other) {
        if (QVariant value = other(object); value.isValid())
            return value;
    }
    const CFTypeID type = CFGetTypeID(object);
    if (type == CFStringGetTypeID())
        return textOfString(static_cast<CFStringRef>(object));
    if (type == CFBooleanGetTypeID())
        return CFBooleanGetValue(static_cast<CFBooleanRef>(object)) != 0;
    if (type == CFNumberGetTypeID())
        return numberOf(static_cast<CFNumberRef>(object));
    if (type == CFArrayGetTypeID())
        return listOf(static_cast<CFArrayRef>(object), other);
    if (type == CFDictionaryGetTypeID())
        return mapOf(static_cast<CFDictionaryRef>(object), other);
    if (type == CFURLGetTypeID())
        return QUrl(textOfString(CFURLGetString(static_cast<CFURLRef>(object))));
    return descriptionOf(object);
}

CfOwned<CFTypeRef> cfValue(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::QString:
        return CfOwned<CFTypeRef>(cfString(value.toString()).release());
    case QMetaType::Bool:
        return cfRetained<CFTypeRef>(value.toBool() ? kCFBooleanTrue : kCFBooleanFalse);
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::LongLong:
        return cfNumber<SInt64>(kCFNumberSInt64Type, value.toLongLong());
    case QMetaType::ULong:
    case QMetaType::ULongLong:
        return cfNumber<SInt64>(kCFNumberSInt64Type, static_cast<SInt64>(value.toULongLong()));
    case QMetaType::Float:
        return cfNumber<Float32>(kCFNumberFloat32Type, value.toFloat());
    case QMetaType::Double:
        return cfNumber<Float64>(kCFNumberFloat64Type, value.toDouble());
    case QMetaType::QStringList:
    case QMetaType::QVariantList:
        return cfList(value.toList());
    case QMetaType::QVariantMap:
        return cfDictionary(value.toMap());
    default:
        return nullptr;
    }
}

CfOwned<CFArrayRef> cfArray(const std::vector<CfOwned<CFTypeRef>>& objects)
{
    std::vector<const void*> values;
    values.reserve(objects.size());
    for (const auto& object : objects)
        values.push_back(object.get());
    return CfOwned<CFArrayRef>(CFArrayCreate(kCFAllocatorDefault, values.data(),
                                             static_cast<CFIndex>(values.size()), &kCFTypeArrayCallBacks));
}

} // namespace tarnwick
