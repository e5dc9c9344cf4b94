// SPDX-License-Identifier: MIT
#include "tests/macos/simulation/MacObject.h"

#include "ax/AXValue.h"
#include "tests/macos/simulation/SimulatedMac.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace tarnwick {
namespace {

MacObjects& objects()
{
    return MacObjects::instance();
}

SimulatedMac& mac()
{
    return SimulatedMac::instance();
}

} // namespace

QVariant MacObject::described() const
{
    const QVariant stands = value();
    return stands.isValid() ? stands : QVariant(name);
}

bool MacString::equals(const MacObject& other) const
{
    const auto* string = dynamic_cast<const MacString*>(&other);
    return string && string->text == text;
}

bool MacUrl::equals(const MacObject& other) const
{
    const auto* url = dynamic_cast<const MacUrl*>(&other);
    return url && url->text == text;
}

bool MacElement::equals(const MacObject& other) const
{
    const auto* element = dynamic_cast<const MacElement*>(&other);
    return element && element->node == node && element->processIdentifier == processIdentifier;
}

QVariant MacArray::value() const
{
    QVariantList list;
    for (const MacObject* each : items)
        list.append(each ? each->value() : QVariant());
    return list;
}

QVariant MacDictionary::value() const
{
    QVariantMap map;
    for (const auto& [key, each] : entries)
        map.insert(key->value().toString(), each->value());
    return map;
}

QVariant MacUrl::value() const
{
    return QUrl(text);
}

QVariant MacElement::value() const
{
    return node ? QVariant::fromValue(node) : QVariant();
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
    _byAddress.clear();
    _handedOut.clear();
}

void MacObjects::nameAfter(MacObject* object, const QString& function)
{
    object->madeBy = function;
    object->name = function + u' ' + QString::number(++_handedOut[function]);
}

MacObject* MacObjects::at(const void* address) const
{
    if (MacObject* object = _byAddress.value(address))
        return object;
    return _permanent.value(address);
}

MacObject* MacObjects::_find(const void* reference)
{
    MacObject* object = at(reference);
    if (object && object->dead)
        mac().fault(u"used after its release: "_s + object->name);
    return object;
}

void MacObjects::_wrongType(const void* reference)
{
    if (!reference)
        mac().fault(u"nothing was passed as an object"_s);
    else if (const MacObject* object = instance().at(reference))
        mac().fault(u"an object of another type was expected: "_s + object->name);
    else
        mac().fault(u"not an object of this system"_s);
}

void MacObjects::retain(const void* reference)
{
    auto* object = find<MacObject>(reference);
    if (!object || object->permanent)
        return;
    if (object->madeBy.isEmpty())
        nameAfter(object, u"CFRetain"_s);
    ++object->owned;
}

void MacObjects::release(const void* reference)
{
    auto* object = find<MacObject>(reference);
    if (!object || object->permanent)
        return;
    if (object->owned == 0) {
        mac().fault(u"released too often: "_s + object->name);
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
        structured->structured = value;
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
    const auto* object = reference ? objects().find<MacObject>(reference) : nullptr;
    return object ? object->value() : QVariant();
}

QString textOf(CFStringRef string)
{
    return valueOf(string).toString();
}

} // namespace tarnwick
