// SPDX-License-Identifier: MIT
#pragma once

#include "shortcut/ValueTransformer.h"

#include <QString>
#include <QVariant>

#include <memory>
#include <utility>

namespace tarnwick {

/// An object whose values are set by key path.
class KeyValueObject
{
public:
    virtual ~KeyValueObject() = default;
    virtual void setValueForKeyPath(const QVariant& value, const QString& keyPath) = 0;

protected:
    KeyValueObject() = default;
    KeyValueObject(const KeyValueObject&) = default;
    KeyValueObject& operator=(const KeyValueObject&) = default;
    KeyValueObject(KeyValueObject&&) = default;
    KeyValueObject& operator=(KeyValueObject&&) = default;
};

/// One entry of a binding: it may be missing, hold the null object, which says "none" in so many words, or
/// hold a value.
template <typename T>
class BindingEntry
{
public:
    BindingEntry() = default;
    BindingEntry(T value) : _kind(Kind::Value), _value(std::move(value)) {}
    [[nodiscard]] static BindingEntry nullObject()
    {
        BindingEntry entry;
        entry._kind = Kind::NullObject;
        return entry;
    }

    [[nodiscard]] bool isMissing() const { return _kind == Kind::Missing; }
    /// False for the null object as well.
    [[nodiscard]] bool hasValue() const { return _kind == Kind::Value; }
    [[nodiscard]] const T& value() const { return _value; }

private:
    enum class Kind { Missing, NullObject, Value };
    Kind _kind = Kind::Missing;
    T _value{};
};

/// What a control's value is bound to.
struct Binding
{
    BindingEntry<KeyValueObject*> observedObject; ///< not owned
    BindingEntry<QString> observedKeyPath;
    BindingEntry<std::shared_ptr<ValueTransformer>> valueTransformer;
    BindingEntry<QString> valueTransformerName; ///< counts only without a transformer
};

/// Sets `value`, transformed back where the binding has a transformer, on the observed object. A binding that
/// is not complete is logged and changes nothing; a transformer that cannot transform back is logged and left
/// out.
void pushValue(const QVariant& value, const Binding& binding);

} // namespace tarnwick
