// SPDX-License-Identifier: MIT
#include "foundation/UserDefaults.h"

#include "foundation/DefaultsStore.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

// A text file gives every value back as text, another store gives back what was written. Both are read from
// the text, so that the same setting reads alike from either.
std::optional<QString> textOf(const QVariant& stored)
{
    switch (stored.typeId()) {
    case QMetaType::QString:
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Long:
    case QMetaType::ULong:
        return stored.toString();
    default:
        return std::nullopt;
    }
}

std::optional<bool> readBool(const QString& text)
{
    for (const auto& yes : {u"true"_s, u"yes"_s, u"1"_s}) {
        if (text.compare(yes, Qt::CaseInsensitive) == 0)
            return true;
    }
    for (const auto& no : {u"false"_s, u"no"_s, u"0"_s}) {
        if (text.compare(no, Qt::CaseInsensitive) == 0)
            return false;
    }
    return std::nullopt;
}

std::optional<qint32> readInt(const QString& text)
{
    bool readable = false;
    const qint32 number = text.toInt(&readable);
    return readable ? std::optional(number) : std::nullopt;
}

// Some stores know signed numbers only and give a large unsigned one back as negative.
std::optional<quint64> readUnsigned(const QString& text)
{
    bool readable = false;
    const quint64 number = text.startsWith(u'-') ? static_cast<quint64>(text.toLongLong(&readable))
                                                 : text.toULongLong(&readable);
    return readable ? std::optional(number) : std::nullopt;
}

template <typename T>
QVariant orInvalid(const std::optional<T>& value)
{
    return value ? QVariant::fromValue(*value) : QVariant();
}

// Invalid when `stored` cannot be read as `type`.
QVariant readAs(int type, const QVariant& stored)
{
    const auto text = textOf(stored);
    if (!text)
        return {};
    switch (type) {
    case QMetaType::Bool:
        return orInvalid(readBool(*text));
    case QMetaType::Int:
        return orInvalid(readInt(*text));
    case QMetaType::ULongLong:
        return orInvalid(readUnsigned(*text));
    default:
        return stored.typeId() == type ? stored : QVariant();
    }
}

} // namespace

UserDefaults& UserDefaults::standardUserDefaults()
{
    static UserDefaults defaults;
    return defaults;
}

void UserDefaults::registerDefaults(const DefaultsTable& table)
{
    for (const auto& [key, value] : table)
        _registered.insert(key, value);
}

QVariant UserDefaults::objectForKey(const QString& key) const
{
    const auto stored = DefaultsStore::shared().value(key);
    const auto registered = _registered.constFind(key);
    if (registered == _registered.cend())
        return stored.value_or(QVariant());
    const QVariant value = stored ? readAs(registered->typeId(), *stored) : QVariant();
    return value.isValid() ? value : *registered;
}

bool UserDefaults::boolForKey(const QString& key) const
{
    const auto text = textOf(objectForKey(key));
    return text && readBool(*text).value_or(false);
}

qint32 UserDefaults::intForKey(const QString& key) const
{
    return static_cast<qint32>(unsignedForKey(key));
}

quint64 UserDefaults::unsignedForKey(const QString& key) const
{
    const auto text = textOf(objectForKey(key));
    return text ? readUnsigned(*text).value_or(0) : 0;
}

std::optional<QVariantMap> UserDefaults::dictionaryForKey(const QString& key) const
{
    const auto text = textOf(objectForKey(key));
    if (!text)
        return std::nullopt;
    const auto document = QJsonDocument::fromJson(text->toUtf8());
    return document.isObject() ? std::optional(document.object().toVariantMap()) : std::nullopt;
}

void UserDefaults::setObjectForKey(const QVariant& value, const QString& key)
{
    storeObjectForKey(value, key);
    didChange(key);
}

void UserDefaults::setBoolForKey(bool value, const QString& key)
{
    setObjectForKey(value, key);
}

void UserDefaults::storeObjectForKey(const QVariant& value, const QString& key)
{
    auto& store = DefaultsStore::shared();
    if (!value.isValid())
        store.removeValue(key);
    else if (value.typeId() == QMetaType::QVariantMap)
        store.setValue(
            key,
            QString::fromUtf8(
                QJsonDocument(QJsonObject::fromVariantMap(value.toMap())).toJson(QJsonDocument::Compact)));
    else
        store.setValue(key, value);
}

void UserDefaults::didChange(const QString& key)
{
    _observers.notify(key);
}

std::unique_ptr<UserDefaults::Observer>
UserDefaults::addObserver(std::function<void(const QString& key)> changed)
{
    return _observers.add(std::move(changed));
}

} // namespace tarnwick
