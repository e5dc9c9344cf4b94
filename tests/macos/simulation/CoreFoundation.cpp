// SPDX-License-Identifier: MIT
// Simulated Core Foundation: strings, numbers, collections, URLs, preferences, run loop, notifications.
#include "tests/macos/simulation/MacObject.h"
#include "tests/macos/simulation/MacState.h"
#include "tests/macos/simulation/SimulatedMac.h"

#include <QMap>
#include <QUrl>

#include <CoreFoundation/CoreFoundation.h>

using namespace Qt::StringLiterals;
using namespace tarnwick;

struct CFArrayCallBacks
{
};
struct CFDictionaryKeyCallBacks
{
};
struct CFDictionaryValueCallBacks
{
};

namespace {

CFBooleanRef constantBoolean(const QString& name, bool value)
{
    auto* boolean = MacObjects::instance().makePermanent<MacBoolean>(name);
    boolean->isTrue = value;
    return referenceTo<CFBooleanRef>(boolean);
}

template <typename Object>
CFTypeID typeOf()
{
    static const char marker = 0;
    return reinterpret_cast<CFTypeID>(&marker);
}

template <typename Object>
CFTypeID answeredTypeOf(const MacCall& call)
{
    return call.fails() ? 0 : typeOf<Object>();
}

MacObjects& objects()
{
    return MacObjects::instance();
}

SimulatedMac& mac()
{
    return SimulatedMac::instance();
}

CFTypeID typeOfObject(MacObject* object)
{
    if (dynamic_cast<MacString*>(object))
        return typeOf<MacString>();
    if (dynamic_cast<MacNumber*>(object))
        return typeOf<MacNumber>();
    if (dynamic_cast<MacBoolean*>(object))
        return typeOf<MacBoolean>();
    if (dynamic_cast<MacArray*>(object))
        return typeOf<MacArray>();
    if (dynamic_cast<MacDictionary*>(object))
        return typeOf<MacDictionary>();
    if (dynamic_cast<MacData*>(object))
        return typeOf<MacData>();
    if (dynamic_cast<MacUrl*>(object))
        return typeOf<MacUrl>();
    if (dynamic_cast<MacValue*>(object))
        return typeOf<MacValue>();
    if (dynamic_cast<MacElement*>(object))
        return typeOf<MacElement>();
    return typeOf<MacHandle>();
}

/// What an array or dictionary made of these values holds, as the test sees it.
QVariantList describedValues(const void** values, CFIndex count)
{
    QVariantList list;
    for (CFIndex i = 0; i < count; ++i)
        list.append(valueOf(values[i]));
    return list;
}

/// A number as `type` is laid out in memory; invalid for a type that is not simulated.
QVariant numberAt(CFNumberType type, const void* value)
{
    switch (type) {
    case kCFNumberSInt64Type:
        return QVariant::fromValue<qint64>(*static_cast<const SInt64*>(value));
    case kCFNumberFloat32Type:
        return *static_cast<const Float32*>(value);
    case kCFNumberFloat64Type:
        return *static_cast<const Float64*>(value);
    default:
        mac().fault(u"a number of this type is not simulated"_s);
        return {};
    }
}

} // namespace

const CFAllocatorRef kCFAllocatorDefault = nullptr;
const CFBooleanRef kCFBooleanTrue = constantBoolean(u"kCFBooleanTrue"_s, true);
const CFBooleanRef kCFBooleanFalse = constantBoolean(u"kCFBooleanFalse"_s, false);
const CFArrayCallBacks kCFTypeArrayCallBacks{};
const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks{};
const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks{};
const CFStringRef kCFPreferencesCurrentApplication =
    constantString<CFStringRef>(u"kCFPreferencesCurrentApplication"_s);
const CFRunLoopMode kCFRunLoopCommonModes = constantString<CFRunLoopMode>(u"kCFRunLoopCommonModes"_s);

// The account of references: these two always work.

CFTypeRef CFRetain(CFTypeRef object)
{
    const MacCall call(__func__, object);
    objects().retain(object);
    return object;
}

void CFRelease(CFTypeRef object)
{
    const MacCall call(__func__, object);
    objects().release(object);
}

Boolean CFEqual(CFTypeRef left, CFTypeRef right)
{
    const MacCall call(__func__, left, right);
    const auto* one = objects().find<MacObject>(left);
    const auto* other = objects().find<MacObject>(right);
    return !call.fails() && one && other && one->equals(*other);
}

CFTypeID CFGetTypeID(CFTypeRef reference)
{
    const MacCall call(__func__, reference);
    auto* object = objects().find<MacObject>(reference);
    return call.fails() || !object ? 0 : typeOfObject(object);
}

CFTypeID CFStringGetTypeID()
{
    return answeredTypeOf<MacString>(MacCall(__func__));
}
CFTypeID CFNumberGetTypeID()
{
    return answeredTypeOf<MacNumber>(MacCall(__func__));
}
CFTypeID CFBooleanGetTypeID()
{
    return answeredTypeOf<MacBoolean>(MacCall(__func__));
}
CFTypeID CFArrayGetTypeID()
{
    return answeredTypeOf<MacArray>(MacCall(__func__));
}
CFTypeID CFDictionaryGetTypeID()
{
    return answeredTypeOf<MacDictionary>(MacCall(__func__));
}
CFTypeID CFURLGetTypeID()
{
    return answeredTypeOf<MacUrl>(MacCall(__func__));
}
CFTypeID AXValueGetTypeID()
{
    return answeredTypeOf<MacValue>(MacCall(__func__));
}
CFTypeID AXUIElementGetTypeID()
{
    return answeredTypeOf<MacElement>(MacCall(__func__));
}

CFStringRef CFCopyDescription(CFTypeRef reference)
{
    const MacCall call(__func__, reference);
    const QVariant value = valueOf(reference);
    return call.fails() ? nullptr
                        : handOut<CFStringRef>(
                              objectFor(u"<"_s + QString::fromLatin1(value.typeName()) + u">"_s), call);
}

// What CFSTR stands for: made with the program, by no call.
CFStringRef __CFStringMakeConstantString(const char* text)
{
    static QMap<QString, CFStringRef> constants;
    const QString name = QString::fromLatin1(text);
    if (!constants.contains(name))
        constants.insert(name, constantString<CFStringRef>(name));
    return constants.value(name);
}

CFStringRef CFStringCreateWithCharacters(CFAllocatorRef allocator, const UniChar* units, CFIndex count)
{
    const QString text(reinterpret_cast<const QChar*>(units), count);
    const MacCall call(__func__, allocator, QVariant(text));
    // An empty text is an object too.
    auto* string = objects().make<MacString>();
    string->text = text;
    return call.fails() ? nullptr : handOut<CFStringRef>(string, call);
}

CFIndex CFStringGetLength(CFStringRef reference)
{
    const MacCall call(__func__, reference);
    const auto* string = objects().find<MacString>(reference);
    return call.fails() || !string ? 0 : string->text.size();
}

void CFStringGetCharacters(CFStringRef reference, CFRange range, UniChar* buffer)
{
    const MacCall call(__func__, reference, range.location, range.length, buffer);
    const auto* string = objects().find<MacString>(reference);
    if (call.fails() || !string)
        return;
    for (CFIndex i = 0; i < range.length; ++i)
        buffer[i] = string->text.at(range.location + i).unicode();
}

Boolean CFBooleanGetValue(CFBooleanRef boolean)
{
    const MacCall call(__func__, boolean);
    const auto* object = objects().find<MacBoolean>(boolean);
    return !call.fails() && object && object->isTrue;
}

CFNumberRef CFNumberCreate(CFAllocatorRef allocator, CFNumberType type, const void* value)
{
    const QVariant number = numberAt(type, value);
    const MacCall call(__func__, allocator, type, number);
    if (call.fails() || !number.isValid())
        return nullptr;
    auto* object = objects().make<MacNumber>();
    object->number = number;
    return handOut<CFNumberRef>(object, call);
}

Boolean CFNumberIsFloatType(CFNumberRef number)
{
    const MacCall call(__func__, number);
    const auto* object = objects().find<MacNumber>(number);
    return !call.fails() && object && object->number.typeId() != QMetaType::LongLong;
}

Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void* value)
{
    const MacCall call(__func__, number, type, value);
    const auto* object = objects().find<MacNumber>(number);
    if (call.fails() || !object)
        return false;
    const bool isFraction = object->number.typeId() != QMetaType::LongLong;
    const qint64 whole =
        isFraction ? static_cast<qint64>(object->number.toDouble()) : object->number.toLongLong();
    switch (type) {
    case kCFNumberSInt16Type:
        *static_cast<SInt16*>(value) = static_cast<SInt16>(whole);
        return static_cast<SInt16>(whole) == whole;
    case kCFNumberSInt32Type:
        *static_cast<SInt32*>(value) = static_cast<SInt32>(whole);
        return static_cast<SInt32>(whole) == whole;
    case kCFNumberSInt64Type:
        *static_cast<SInt64*>(value) = whole;
        return true;
    case kCFNumberFloat64Type:
        *static_cast<Float64*>(value) = object->number.toDouble();
        return true;
    default:
        mac().fault(u"a number of this type is not simulated"_s);
        return false;
    }
}

CFArrayRef CFArrayCreate(CFAllocatorRef allocator, const void** values, CFIndex count,
                         const CFArrayCallBacks* callBacks)
{
    const MacCall call(__func__, allocator, QVariant(describedValues(values, count)), callBacks);
    if (callBacks != &kCFTypeArrayCallBacks)
        mac().fault(u"an array that does not retain its values"_s);
    if (call.fails())
        return nullptr;
    auto* array = objects().make<MacArray>();
    for (CFIndex i = 0; i < count; ++i) {
        array->items.append(objects().find<MacObject>(values[i]));
        MacObjects::hold(array->items.last());
    }
    return handOut<CFArrayRef>(array, call);
}

CFIndex CFArrayGetCount(CFArrayRef array)
{
    const MacCall call(__func__, array);
    const auto* object = objects().find<MacArray>(array);
    return call.fails() || !object ? 0 : object->items.size();
}

const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index)
{
    const MacCall call(__func__, array, index);
    const auto* object = objects().find<MacArray>(array);
    if (object && (index < 0 || index >= object->items.size()))
        mac().fault(u"an index outside the array"_s);
    return call.fails() || !object ? nullptr : object->items.value(index);
}

CFDictionaryRef CFDictionaryCreate(CFAllocatorRef allocator, const void** keys, const void** values,
                                   CFIndex count, const CFDictionaryKeyCallBacks* keyCallBacks,
                                   const CFDictionaryValueCallBacks* valueCallBacks)
{
    const MacCall call(__func__, allocator, QVariant(describedValues(keys, count)),
                       QVariant(describedValues(values, count)), keyCallBacks, valueCallBacks);
    if (keyCallBacks != &kCFTypeDictionaryKeyCallBacks || valueCallBacks != &kCFTypeDictionaryValueCallBacks)
        mac().fault(u"a dictionary that does not retain its entries"_s);
    if (call.fails())
        return nullptr;
    auto* dictionary = objects().make<MacDictionary>();
    for (CFIndex i = 0; i < count; ++i) {
        dictionary->entries.append(
            std::pair(objects().find<MacObject>(keys[i]), objects().find<MacObject>(values[i])));
        MacObjects::hold(dictionary->entries.last().first);
        MacObjects::hold(dictionary->entries.last().second);
    }
    return handOut<CFDictionaryRef>(dictionary, call);
}

CFIndex CFDictionaryGetCount(CFDictionaryRef dictionary)
{
    const MacCall call(__func__, dictionary);
    const auto* object = objects().find<MacDictionary>(dictionary);
    return call.fails() || !object ? 0 : object->entries.size();
}

const void* CFDictionaryGetValue(CFDictionaryRef dictionary, const void* key)
{
    const MacCall call(__func__, dictionary, key);
    const auto* object = objects().find<MacDictionary>(dictionary);
    const auto* wanted = objects().find<MacObject>(key);
    if (call.fails() || !object || !wanted)
        return nullptr;
    for (const auto& [each, value] : object->entries) {
        if (each->equals(*wanted))
            return value;
    }
    return nullptr;
}

void CFDictionaryGetKeysAndValues(CFDictionaryRef dictionary, const void** keys, const void** values)
{
    const MacCall call(__func__, dictionary, keys, values);
    const auto* object = objects().find<MacDictionary>(dictionary);
    if (call.fails() || !object)
        return;
    for (qsizetype i = 0; i < object->entries.size(); ++i) {
        keys[i] = object->entries.at(i).first;
        values[i] = object->entries.at(i).second;
    }
}

const UInt8* CFDataGetBytePtr(CFDataRef data)
{
    const MacCall call(__func__, data);
    const auto* object = objects().find<MacData>(data);
    return call.fails() || !object ? nullptr : reinterpret_cast<const UInt8*>(object->bytes.constData());
}

CFURLRef CFURLCreateWithFileSystemPath(CFAllocatorRef allocator, CFStringRef path, CFURLPathStyle style,
                                       Boolean isDirectory)
{
    const MacCall call(__func__, allocator, path, style, bool(isDirectory));
    const auto* text = objects().find<MacString>(path);
    if (call.fails() || !text)
        return nullptr;
    return handOut<CFURLRef>(urlFor(text->text, isDirectory), call);
}

CFStringRef CFURLCopyFileSystemPath(CFURLRef url, CFURLPathStyle style)
{
    const MacCall call(__func__, url, style);
    const auto* object = objects().find<MacUrl>(url);
    return call.fails() || !object ? nullptr : handOut<CFStringRef>(objectFor(object->path), call);
}

CFURLRef CFURLCopyAbsoluteURL(CFURLRef url)
{
    const MacCall call(__func__, url);
    const auto* object = objects().find<MacUrl>(url);
    return call.fails() || !object ? nullptr : handOut<CFURLRef>(objectFor(QUrl(object->text)), call);
}

CFStringRef CFURLGetString(CFURLRef url)
{
    const MacCall call(__func__, url);
    auto* object = objects().find<MacUrl>(url);
    if (call.fails() || !object)
        return nullptr;
    if (!object->string) {
        object->string = objectFor(object->text);
        MacObjects::hold(object->string);
    }
    return referenceTo<CFStringRef>(object->string);
}

CFBundleRef CFBundleGetMainBundle()
{
    static const auto bundle = constantHandle<CFBundleRef>(u"CFBundleGetMainBundle"_s);
    const MacCall call(__func__);
    return call.fails() ? nullptr : bundle;
}

CFURLRef CFBundleCopyBundleURL(CFBundleRef bundle)
{
    const MacCall call(__func__, bundle);
    if (!objects().find<MacHandle>(bundle) || call.fails())
        return nullptr;
    return handOut<CFURLRef>(urlFor(mac().bundlePath, true), call);
}

CFURLRef CFBundleCopyResourceURL(CFBundleRef bundle, CFStringRef name, CFStringRef type,
                                 CFStringRef subfolder)
{
    const MacCall call(__func__, bundle, name, type, subfolder);
    const auto* base = objects().find<MacString>(name);
    const auto* ending = objects().find<MacString>(type);
    if (!objects().find<MacHandle>(bundle) || !base || !ending || call.fails())
        return nullptr;
    const QString file = base->text + u'.' + ending->text;
    if (!mac().bundleResources.contains(file))
        return nullptr;
    return handOut<CFURLRef>(urlFor(mac().bundlePath + u"/Contents/Resources/"_s + file, false), call);
}

CFPropertyListRef CFPreferencesCopyAppValue(CFStringRef key, CFStringRef application)
{
    const MacCall call(__func__, key, application);
    const auto* name = objects().find<MacString>(key);
    if (call.fails() || !name)
        return nullptr;
    return handOut<CFPropertyListRef>(objectFor(mac().preferences.value(name->text)), call);
}

void CFPreferencesSetAppValue(CFStringRef key, CFPropertyListRef value, CFStringRef application)
{
    const MacCall call(__func__, key, value, application);
    const auto* name = objects().find<MacString>(key);
    if (call.fails() || !name)
        return;
    if (value)
        mac().preferences.insert(name->text, valueOf(value));
    else
        mac().preferences.remove(name->text);
}

Boolean CFPreferencesAppSynchronize(CFStringRef application)
{
    const MacCall call(__func__, application);
    return !call.fails();
}

CFRunLoopRef CFRunLoopGetCurrent()
{
    static const auto loop = constantHandle<CFRunLoopRef>(u"CFRunLoopGetCurrent"_s);
    const MacCall call(__func__);
    return call.fails() ? nullptr : loop;
}

CFRunLoopSourceRef CFMachPortCreateRunLoopSource(CFAllocatorRef allocator, CFMachPortRef port, CFIndex order)
{
    const MacCall call(__func__, allocator, port, order);
    auto* object = objects().find<MacHandle>(port);
    if (call.fails() || !object)
        return nullptr;
    auto* source = objects().make<MacHandle>();
    source->holds = object;
    MacObjects::hold(object);
    return handOut<CFRunLoopSourceRef>(source, call);
}

void CFRunLoopAddSource(CFRunLoopRef loop, CFRunLoopSourceRef source, CFRunLoopMode mode)
{
    const MacCall call(__func__, loop, source, mode);
    auto* handle = objects().find<MacHandle>(source);
    if (!objects().find<MacHandle>(loop) || !handle || call.fails())
        return;
    MacObjects::hold(handle);
    if (auto* tap = dynamic_cast<MacTap*>(handle->holds))
        tap->scheduled = true;
}

CFNotificationCenterRef CFNotificationCenterGetDistributedCenter()
{
    static const auto center =
        constantHandle<CFNotificationCenterRef>(u"CFNotificationCenterGetDistributedCenter"_s);
    const MacCall call(__func__);
    return call.fails() ? nullptr : center;
}

void CFNotificationCenterAddObserver(CFNotificationCenterRef center, const void* observer,
                                     CFNotificationCallback callBack, CFStringRef name, const void* object,
                                     CFNotificationSuspensionBehavior suspensionBehavior)
{
    const MacCall call(__func__, center, observer, callBack, name, object, suspensionBehavior);
    if (!objects().find<MacHandle>(center) || call.fails())
        return;
    MacState::instance().observers.append({center, const_cast<void*>(observer), callBack, textOf(name)});
}
