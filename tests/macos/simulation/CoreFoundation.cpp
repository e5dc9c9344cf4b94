// SPDX-License-Identifier: MIT
// Simulated Core Foundation: strings, numbers, collections, URLs, preferences, run loop, notifications.
#include "ax/AXValue.h"
#include "tests/macos/simulation/MacObject.h"
#include "tests/macos/simulation/MacState.h"
#include "tests/macos/simulation/SimulatedMac.h"

#include <QUrl>

#include <CoreFoundation/CoreFoundation.h>
#include <cmath>

using namespace Qt::StringLiterals;

struct CFArrayCallBacks
{
};
struct CFDictionaryKeyCallBacks
{
};
struct CFDictionaryValueCallBacks
{
};

namespace tarnwick {
namespace {

template <typename Reference>
Reference constantString(const char16_t* text)
{
    auto* string = MacObjects::instance().makePermanent<MacString>();
    string->text = QString::fromUtf16(text);
    return referenceTo<Reference>(string);
}

CFBooleanRef constantBoolean(bool value)
{
    auto* boolean = MacObjects::instance().makePermanent<MacBoolean>();
    boolean->value = value;
    return referenceTo<CFBooleanRef>(boolean);
}

template <typename Reference>
Reference constantHandle()
{
    return referenceTo<Reference>(MacObjects::instance().makePermanent<MacHandle>());
}

template <typename Object>
CFTypeID typeOf()
{
    static const char marker = 0;
    return reinterpret_cast<CFTypeID>(&marker);
}

MacObjects& objects()
{
    return MacObjects::instance();
}

SimulatedMac& mac()
{
    return SimulatedMac::instance();
}

} // namespace

bool MacString::equals(const MacObject& other) const
{
    const auto* string = dynamic_cast<const MacString*>(&other);
    return string && string->text == text;
}

bool MacElement::equals(const MacObject& other) const
{
    const auto* element = dynamic_cast<const MacElement*>(&other);
    return element && element->node == node && element->processIdentifier == processIdentifier;
}

void MacArray::dissolve()
{
    for (MacObject* item : std::as_const(items))
        MacObjects::letGo(item);
}

void MacDictionary::dissolve()
{
    for (const auto& [key, value] : std::as_const(entries)) {
        MacObjects::letGo(key);
        MacObjects::letGo(value);
    }
}

void MacUrl::dissolve()
{
    MacObjects::letGo(string);
}

void MacHandle::dissolve()
{
    if (holds)
        MacObjects::letGo(holds);
}

MacObjects& MacObjects::instance()
{
    static MacObjects objects;
    return objects;
}

MacObjects::~MacObjects()
{
    qDeleteAll(_objects);
    qDeleteAll(_permanent);
}

void MacObjects::clear()
{
    qDeleteAll(_objects);
    _objects.clear();
}

MacObject* MacObjects::_find(const void* reference)
{
    for (const auto* list : {&_objects, &_permanent}) {
        for (MacObject* object : *list) {
            if (object != reference)
                continue;
            if (object->dead)
                mac().fault(u"used after its release: "_s + object->madeBy);
            return object;
        }
    }
    mac().fault(u"not an object of this system"_s);
    return nullptr;
}

void MacObjects::_wrongType(const void* reference)
{
    mac().fault(reference ? u"an object of another type was expected"_s
                          : u"nothing was passed as an object"_s);
}

void MacObjects::retain(const void* reference)
{
    MacObject* object = _find(reference);
    if (object && !object->permanent)
        ++object->owned;
}

void MacObjects::release(const void* reference)
{
    MacObject* object = _find(reference);
    if (!object || object->permanent)
        return;
    if (object->owned == 0) {
        mac().fault(u"released too often: "_s + object->madeBy);
        return;
    }
    --object->owned;
    hold(object);
    letGo(object);
}

void MacObjects::hold(MacObject* object)
{
    if (object && !object->permanent)
        ++object->held;
}

void MacObjects::letGo(MacObject* object)
{
    if (!object || object->permanent)
        return;
    --object->held;
    if (object->held > 0 || object->owned > 0 || object->dead)
        return;
    object->dead = true;
    object->dissolve();
}

MacUrl* urlFor(const QString& path, bool directory)
{
    auto* url = objects().make<MacUrl>();
    url->path = path;
    url->text = QUrl::fromLocalFile(directory ? path + u'/' : path).toString(QUrl::FullyEncoded);
    return url;
}

MacObject* objectFor(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return nullptr;
    case QMetaType::QString: {
        auto* string = objects().make<MacString>();
        string->text = value.toString();
        return string;
    }
    case QMetaType::Bool:
        return static_cast<MacObject*>(
            const_cast<void*>(static_cast<const void*>(value.toBool() ? kCFBooleanTrue : kCFBooleanFalse)));
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong: {
        auto* number = objects().make<MacNumber>();
        number->number = value.toLongLong();
        return number;
    }
    case QMetaType::Float:
    case QMetaType::Double: {
        auto* number = objects().make<MacNumber>();
        number->number = value;
        return number;
    }
    case QMetaType::QByteArray: {
        auto* data = objects().make<MacData>();
        data->bytes = value.toByteArray();
        return data;
    }
    case QMetaType::QUrl: {
        auto* url = objects().make<MacUrl>();
        url->text = value.toUrl().toString(QUrl::FullyEncoded);
        url->path = value.toUrl().adjusted(QUrl::StripTrailingSlash).path();
        return url;
    }
    case QMetaType::QVariantList: {
        auto* array = objects().make<MacArray>();
        for (const QVariant& each : value.toList()) {
            array->items.append(objectFor(each));
            MacObjects::hold(array->items.last());
        }
        return array;
    }
    case QMetaType::QVariantMap: {
        auto* dictionary = objects().make<MacDictionary>();
        const QVariantMap map = value.toMap();
        for (auto each = map.cbegin(); each != map.cend(); ++each) {
            dictionary->entries.append(std::pair(objectFor(each.key()), objectFor(each.value())));
            MacObjects::hold(dictionary->entries.last().first);
            MacObjects::hold(dictionary->entries.last().second);
        }
        return dictionary;
    }
    default:
        break;
    }
    if (value.canConvert<AXValue>()) {
        auto* structured = objects().make<MacValue>();
        structured->value = value;
        structured->type = static_cast<UInt32>(value.value<AXValue>().type());
        return structured;
    }
    if (value.canConvert<AxNodeRef>()) {
        auto* element = objects().make<MacElement>();
        element->node = value.value<AxNodeRef>();
        element->processIdentifier = element->node->processIdentifier;
        return element;
    }
    mac().fault(u"no object for a value of type "_s + QString::fromLatin1(value.typeName()));
    return nullptr;
}

QVariant valueOf(const void* reference)
{
    if (!reference)
        return {};
    auto* object = objects().find<MacObject>(reference);
    if (const auto* string = dynamic_cast<MacString*>(object))
        return string->text;
    if (const auto* number = dynamic_cast<MacNumber*>(object))
        return number->number;
    if (const auto* boolean = dynamic_cast<MacBoolean*>(object))
        return boolean->value;
    if (const auto* data = dynamic_cast<MacData*>(object))
        return data->bytes;
    if (const auto* url = dynamic_cast<MacUrl*>(object))
        return QUrl(url->text);
    if (const auto* structured = dynamic_cast<MacValue*>(object))
        return structured->value;
    if (const auto* element = dynamic_cast<MacElement*>(object))
        return QVariant::fromValue(element->node);
    if (const auto* array = dynamic_cast<MacArray*>(object)) {
        QVariantList list;
        for (MacObject* each : array->items)
            list.append(valueOf(each));
        return list;
    }
    if (const auto* dictionary = dynamic_cast<MacDictionary*>(object)) {
        QVariantMap map;
        for (const auto& [key, value] : dictionary->entries)
            map.insert(valueOf(key).toString(), valueOf(value));
        return map;
    }
    return {};
}

QString textOf(CFStringRef string)
{
    return valueOf(string).toString();
}

} // namespace tarnwick

using namespace tarnwick;

const CFAllocatorRef kCFAllocatorDefault = nullptr;
const CFBooleanRef kCFBooleanTrue = constantBoolean(true);
const CFBooleanRef kCFBooleanFalse = constantBoolean(false);
const CFArrayCallBacks kCFTypeArrayCallBacks{};
const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks{};
const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks{};
const CFStringRef kCFPreferencesCurrentApplication =
    constantString<CFStringRef>(u"kCFPreferencesCurrentApplication");
const CFRunLoopMode kCFRunLoopCommonModes = constantString<CFRunLoopMode>(u"kCFRunLoopCommonModes");

CFTypeRef CFRetain(CFTypeRef object)
{
    objects().retain(object);
    return object;
}

void CFRelease(CFTypeRef object)
{
    objects().release(object);
}

Boolean CFEqual(CFTypeRef left, CFTypeRef right)
{
    const auto* one = objects().find<MacObject>(left);
    const auto* other = objects().find<MacObject>(right);
    return one && other && one->equals(*other);
}

CFTypeID CFGetTypeID(CFTypeRef reference)
{
    auto* object = objects().find<MacObject>(reference);
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

CFTypeID CFStringGetTypeID()
{
    return typeOf<MacString>();
}
CFTypeID CFNumberGetTypeID()
{
    return typeOf<MacNumber>();
}
CFTypeID CFBooleanGetTypeID()
{
    return typeOf<MacBoolean>();
}
CFTypeID CFArrayGetTypeID()
{
    return typeOf<MacArray>();
}
CFTypeID CFDictionaryGetTypeID()
{
    return typeOf<MacDictionary>();
}
CFTypeID CFDataGetTypeID()
{
    return typeOf<MacData>();
}
CFTypeID CFURLGetTypeID()
{
    return typeOf<MacUrl>();
}
CFTypeID AXValueGetTypeID()
{
    return typeOf<MacValue>();
}
CFTypeID AXUIElementGetTypeID()
{
    return typeOf<MacElement>();
}

CFStringRef CFCopyDescription(CFTypeRef reference)
{
    auto* string = objects().make<MacString>();
    string->text = u"<"_s + QString::fromLatin1(valueOf(reference).typeName()) + u">"_s;
    return handOut<CFStringRef>(string, u"CFCopyDescription"_s);
}

CFStringRef __CFStringMakeConstantString(const char* text)
{
    static QMap<QString, CFStringRef> constants;
    const QString name = QString::fromLatin1(text);
    if (!constants.contains(name))
        constants.insert(name, constantString<CFStringRef>(reinterpret_cast<const char16_t*>(name.utf16())));
    return constants.value(name);
}

CFStringRef CFStringCreateWithCharacters(CFAllocatorRef, const UniChar* units, CFIndex count)
{
    auto* string = objects().make<MacString>();
    string->text = QString(reinterpret_cast<const QChar*>(units), count);
    return handOut<CFStringRef>(string, u"CFStringCreateWithCharacters"_s);
}

CFIndex CFStringGetLength(CFStringRef string)
{
    return textOf(string).size();
}

void CFStringGetCharacters(CFStringRef string, CFRange range, UniChar* buffer)
{
    const QString text = textOf(string);
    for (CFIndex i = 0; i < range.length; ++i)
        buffer[i] = text.at(range.location + i).unicode();
}

Boolean CFBooleanGetValue(CFBooleanRef boolean)
{
    const auto* object = objects().find<MacBoolean>(boolean);
    return object && object->value;
}

CFNumberRef CFNumberCreate(CFAllocatorRef, CFNumberType type, const void* value)
{
    auto* number = objects().make<MacNumber>();
    switch (type) {
    case kCFNumberSInt64Type:
        number->number = QVariant::fromValue<qint64>(*static_cast<const SInt64*>(value));
        break;
    case kCFNumberFloat32Type:
        number->number = *static_cast<const Float32*>(value);
        break;
    case kCFNumberFloat64Type:
        number->number = *static_cast<const Float64*>(value);
        break;
    default:
        mac().fault(u"a number of this type is not simulated"_s);
    }
    return handOut<CFNumberRef>(number, u"CFNumberCreate"_s);
}

Boolean CFNumberIsFloatType(CFNumberRef number)
{
    const auto* object = objects().find<MacNumber>(number);
    return object && object->number.typeId() != QMetaType::LongLong;
}

Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void* value)
{
    const auto* object = objects().find<MacNumber>(number);
    if (!object)
        return false;
    const qint64 whole = object->number.toLongLong();
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

CFArrayRef CFArrayCreate(CFAllocatorRef, const void** values, CFIndex count,
                         const CFArrayCallBacks* callBacks)
{
    if (callBacks != &kCFTypeArrayCallBacks)
        mac().fault(u"an array that does not retain its values"_s);
    auto* array = objects().make<MacArray>();
    for (CFIndex i = 0; i < count; ++i) {
        array->items.append(objects().find<MacObject>(values[i]));
        MacObjects::hold(array->items.last());
    }
    return handOut<CFArrayRef>(array, u"CFArrayCreate"_s);
}

CFIndex CFArrayGetCount(CFArrayRef array)
{
    const auto* object = objects().find<MacArray>(array);
    return object ? object->items.size() : 0;
}

const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index)
{
    const auto* object = objects().find<MacArray>(array);
    return object ? object->items.value(index) : nullptr;
}

CFDictionaryRef CFDictionaryCreate(CFAllocatorRef, const void** keys, const void** values, CFIndex count,
                                   const CFDictionaryKeyCallBacks* keyCallBacks,
                                   const CFDictionaryValueCallBacks* valueCallBacks)
{
    if (keyCallBacks != &kCFTypeDictionaryKeyCallBacks || valueCallBacks != &kCFTypeDictionaryValueCallBacks)
        mac().fault(u"a dictionary that does not retain its entries"_s);
    auto* dictionary = objects().make<MacDictionary>();
    for (CFIndex i = 0; i < count; ++i) {
        dictionary->entries.append(
            std::pair(objects().find<MacObject>(keys[i]), objects().find<MacObject>(values[i])));
        MacObjects::hold(dictionary->entries.last().first);
        MacObjects::hold(dictionary->entries.last().second);
    }
    return handOut<CFDictionaryRef>(dictionary, u"CFDictionaryCreate"_s);
}

CFIndex CFDictionaryGetCount(CFDictionaryRef dictionary)
{
    const auto* object = objects().find<MacDictionary>(dictionary);
    return object ? object->entries.size() : 0;
}

const void* CFDictionaryGetValue(CFDictionaryRef dictionary, const void* key)
{
    const auto* object = objects().find<MacDictionary>(dictionary);
    if (!object)
        return nullptr;
    for (const auto& [each, value] : object->entries) {
        if (each->equals(*objects().find<MacObject>(key)))
            return value;
    }
    return nullptr;
}

void CFDictionaryGetKeysAndValues(CFDictionaryRef dictionary, const void** keys, const void** values)
{
    const auto* object = objects().find<MacDictionary>(dictionary);
    if (!object)
        return;
    for (qsizetype i = 0; i < object->entries.size(); ++i) {
        keys[i] = object->entries.at(i).first;
        values[i] = object->entries.at(i).second;
    }
}

const UInt8* CFDataGetBytePtr(CFDataRef data)
{
    const auto* object = objects().find<MacData>(data);
    return object ? reinterpret_cast<const UInt8*>(object->bytes.constData()) : nullptr;
}

CFIndex CFDataGetLength(CFDataRef data)
{
    const auto* object = objects().find<MacData>(data);
    return object ? object->bytes.size() : 0;
}

CFURLRef CFURLCreateWithFileSystemPath(CFAllocatorRef, CFStringRef path, CFURLPathStyle style,
                                       Boolean isDirectory)
{
    mac().record(u"CFURLCreateWithFileSystemPath"_s, {textOf(path), qlonglong(style), bool(isDirectory)});
    return handOut<CFURLRef>(urlFor(textOf(path), isDirectory), u"CFURLCreateWithFileSystemPath"_s);
}

CFStringRef CFURLCopyFileSystemPath(CFURLRef url, CFURLPathStyle)
{
    const auto* object = objects().find<MacUrl>(url);
    return object ? handOut<CFStringRef>(objectFor(object->path), u"CFURLCopyFileSystemPath"_s) : nullptr;
}

CFURLRef CFURLCopyAbsoluteURL(CFURLRef url)
{
    const auto* object = objects().find<MacUrl>(url);
    return object ? handOut<CFURLRef>(objectFor(QUrl(object->text)), u"CFURLCopyAbsoluteURL"_s) : nullptr;
}

CFStringRef CFURLGetString(CFURLRef url)
{
    auto* object = objects().find<MacUrl>(url);
    if (!object)
        return nullptr;
    if (!object->string) {
        object->string = objectFor(object->text);
        MacObjects::hold(object->string);
    }
    return referenceTo<CFStringRef>(object->string);
}

CFBundleRef CFBundleGetMainBundle()
{
    static const auto bundle = constantHandle<CFBundleRef>();
    return bundle;
}

CFURLRef CFBundleCopyBundleURL(CFBundleRef)
{
    if (mac().failure(u"CFBundleCopyBundleURL"_s))
        return nullptr;
    return handOut<CFURLRef>(urlFor(mac().bundlePath, true), u"CFBundleCopyBundleURL"_s);
}

CFURLRef CFBundleCopyResourceURL(CFBundleRef, CFStringRef name, CFStringRef type, CFStringRef)
{
    mac().record(u"CFBundleCopyResourceURL"_s, {textOf(name), textOf(type)});
    const QString file = textOf(name) + u'.' + textOf(type);
    if (!mac().bundleResources.contains(file))
        return nullptr;
    return handOut<CFURLRef>(urlFor(mac().bundlePath + u"/Contents/Resources/"_s + file, false),
                             u"CFBundleCopyResourceURL"_s);
}

CFPropertyListRef CFPreferencesCopyAppValue(CFStringRef key, CFStringRef application)
{
    mac().record(u"CFPreferencesCopyAppValue"_s, {textOf(key), textOf(application)});
    return handOut<CFPropertyListRef>(objectFor(mac().preferences.value(textOf(key))),
                                      u"CFPreferencesCopyAppValue"_s);
}

void CFPreferencesSetAppValue(CFStringRef key, CFPropertyListRef value, CFStringRef application)
{
    mac().record(u"CFPreferencesSetAppValue"_s, {textOf(key), valueOf(value), textOf(application)});
    if (value)
        mac().preferences.insert(textOf(key), valueOf(value));
    else
        mac().preferences.remove(textOf(key));
}

Boolean CFPreferencesAppSynchronize(CFStringRef application)
{
    mac().record(u"CFPreferencesAppSynchronize"_s, {textOf(application)});
    return !mac().failure(u"CFPreferencesAppSynchronize"_s);
}

CFRunLoopRef CFRunLoopGetCurrent()
{
    static const auto loop = constantHandle<CFRunLoopRef>();
    return loop;
}

CFRunLoopSourceRef CFMachPortCreateRunLoopSource(CFAllocatorRef allocator, CFMachPortRef port, CFIndex order)
{
    mac().record(u"CFMachPortCreateRunLoopSource"_s, {allocator == kCFAllocatorDefault, qlonglong(order)});
    auto* source = objects().make<MacHandle>();
    source->holds = objects().find<MacObject>(port);
    MacObjects::hold(source->holds);
    return handOut<CFRunLoopSourceRef>(source, u"CFMachPortCreateRunLoopSource"_s);
}

void CFRunLoopAddSource(CFRunLoopRef loop, CFRunLoopSourceRef source, CFRunLoopMode mode)
{
    mac().record(u"CFRunLoopAddSource"_s, {loop == CFRunLoopGetCurrent(), textOf(mode)});
    auto* handle = objects().find<MacHandle>(source);
    MacObjects::hold(handle);
    if (auto* tap = dynamic_cast<MacTap*>(handle->holds))
        tap->scheduled = true;
}

CFNotificationCenterRef CFNotificationCenterGetDistributedCenter()
{
    static const auto center = constantHandle<CFNotificationCenterRef>();
    return center;
}

void CFNotificationCenterAddObserver(CFNotificationCenterRef center, const void* observer,
                                     CFNotificationCallback callBack, CFStringRef name, const void* object,
                                     CFNotificationSuspensionBehavior suspensionBehavior)
{
    mac().record(u"CFNotificationCenterAddObserver"_s,
                 {center == CFNotificationCenterGetDistributedCenter(), textOf(name), object == nullptr,
                  qlonglong(suspensionBehavior)});
    MacState::instance().observers.append({const_cast<void*>(observer), callBack, textOf(name)});
}
