// SPDX-License-Identifier: MIT
#pragma once

#include "tests/macos/simulation/AxNode.h"
#include "tests/macos/simulation/MacCall.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QVariant>

#include <CoreFoundation/CoreFoundation.h>
#include <type_traits>
#include <utility>

namespace tarnwick {

/// Anything that a reference of the simulated frameworks points to.
struct MacObject
{
    MacObject() = default;
    virtual ~MacObject() = default;
    MacObject(const MacObject&) = delete;
    MacObject& operator=(const MacObject&) = delete;

    /// Lets go of what it holds, when its last reference is gone.
    virtual void dissolve() {}
    [[nodiscard]] virtual bool equals(const MacObject& other) const { return this == &other; }
    /// What it stands for, as the tests compare it; invalid for what is nothing but a handle.
    [[nodiscard]] virtual QVariant value() const { return {}; }
    /// Its value, else its name.
    [[nodiscard]] QVariant described() const;

    QString name;           ///< of a constant; of others the function that handed it out and a number from 1
    QString madeBy;         ///< the function that handed it out
    int owned = 0;          ///< references that the adapters must release
    int held = 0;           ///< references of other objects and of the system
    bool permanent = false; ///< a constant
    bool dead = false;
};

struct MacString final : MacObject
{
    [[nodiscard]] bool equals(const MacObject& other) const override;
    [[nodiscard]] QVariant value() const override { return text; }
    QString text;
};
struct MacNumber final : MacObject
{
    [[nodiscard]] QVariant value() const override { return number; }
    QVariant number; ///< qint64, double or float
};
struct MacBoolean final : MacObject
{
    [[nodiscard]] QVariant value() const override { return isTrue; }
    bool isTrue = false;
};
struct MacArray final : MacObject
{
    void dissolve() override;
    [[nodiscard]] QVariant value() const override;
    QList<MacObject*> items;
};
struct MacDictionary final : MacObject
{
    void dissolve() override;
    [[nodiscard]] QVariant value() const override;
    QList<std::pair<MacObject*, MacObject*>> entries;
};
struct MacData final : MacObject
{
    [[nodiscard]] QVariant value() const override { return bytes; }
    QByteArray bytes;
};
struct MacUrl final : MacObject
{
    void dissolve() override;
    [[nodiscard]] bool equals(const MacObject& other) const override;
    [[nodiscard]] QVariant value() const override;
    MacObject* string = nullptr; ///< what CFURLGetString gave
    QString path;                ///< without a slash at the end
    QString text;                ///< the whole URL; directories end in a slash
};
struct MacValue final : MacObject
{
    [[nodiscard]] QVariant value() const override { return structured; }
    QVariant structured; ///< AXValue of the core
    UInt32 type = 0;
};
struct MacElement final : MacObject
{
    [[nodiscard]] bool equals(const MacObject& other) const override;
    [[nodiscard]] QVariant value() const override;
    AxNodeRef node; ///< null for a process that is not there
    qint64 processIdentifier = 0;
};
/// What is nothing but a handle: a run loop, a bundle, a port, a hot key.
struct MacHandle : MacObject
{
    void dissolve() override;
    MacObject* holds = nullptr;
};

/// All objects that were ever made since the last reset; the dead stay to be recognised.
class MacObjects
{
public:
    static MacObjects& instance();
    ~MacObjects();
    MacObjects(const MacObjects&) = delete;
    MacObjects& operator=(const MacObjects&) = delete;
    void clear();

    template <typename Object>
    Object* make()
    {
        auto* object = new Object;
        _objects.append(object);
        _byAddress.insert(object, object);
        return object;
    }
    template <typename Object>
    Object* makePermanent(const QString& name)
    {
        auto* object = new Object;
        object->permanent = true;
        object->name = name;
        _permanent.insert(object, object);
        return object;
    }

    /// Gives the object the next name of what this function hands out.
    void nameAfter(MacObject* object, const QString& function);

    /// The live object of this type that `reference` points to; a fault and null otherwise.
    template <typename Object>
    [[nodiscard]] Object* find(const void* reference)
    {
        auto* object = dynamic_cast<Object*>(_find(reference));
        if (!object)
            _wrongType(reference);
        return object;
    }
    /// The object at this address, dead or alive; null, and no fault, when there is none.
    [[nodiscard]] MacObject* at(const void* address) const;
    [[nodiscard]] const QList<MacObject*>& all() const { return _objects; }

    void retain(const void* reference);
    void release(const void* reference);
    static void hold(MacObject* object);
    static void letGo(MacObject* object);

private:
    MacObjects() = default;
    [[nodiscard]] MacObject* _find(const void* reference);
    static void _wrongType(const void* reference);
    QList<MacObject*> _objects;
    QHash<const void*, MacObject*> _byAddress;
    QHash<const void*, MacObject*> _permanent;
    QHash<QString, int> _handedOut;
};

/// The reference, of the framework's type, to an object.
template <typename Reference>
[[nodiscard]] Reference referenceTo(MacObject* object)
{
    using Pointed = std::remove_const_t<std::remove_pointer_t<Reference>>;
    return static_cast<Pointed*>(static_cast<void*>(object));
}

/// A reference that the receiver of what `call` gives must release.
template <typename Reference>
[[nodiscard]] Reference handOut(MacObject* object, const MacCall& call)
{
    if (!object)
        return nullptr;
    if (!object->permanent) {
        MacObjects::instance().nameAfter(object, call.function());
        ++object->owned;
    }
    return referenceTo<Reference>(object);
}

/// A constant of the frameworks.
template <typename Reference>
[[nodiscard]] Reference constantString(const QString& text)
{
    auto* string = MacObjects::instance().makePermanent<MacString>(text);
    string->text = text;
    return referenceTo<Reference>(string);
}

/// The one object of its kind, which nobody owns.
template <typename Reference>
[[nodiscard]] Reference constantHandle(const QString& name)
{
    return referenceTo<Reference>(MacObjects::instance().makePermanent<MacHandle>(name));
}

/// An object for a value; nobody owns it yet. Null for an invalid value.
[[nodiscard]] MacObject* objectFor(const QVariant& value);
[[nodiscard]] MacUrl* urlFor(const QString& path, bool directory);
/// The value of an object, as the tests compare it.
[[nodiscard]] QVariant valueOf(const void* reference);
/// The text of a string reference, "" for null.
[[nodiscard]] QString textOf(CFStringRef string);

} // namespace tarnwick
