// SPDX-License-Identifier: MIT
#pragma once

#include "tests/macos/simulation/AxNode.h"

#include <QByteArray>
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

    QString madeBy;         ///< the function that handed it out
    int owned = 0;          ///< references that the adapters must release
    int held = 0;           ///< references of other objects and of the system
    bool permanent = false; ///< a constant
    bool dead = false;
};

struct MacString final : MacObject
{
    [[nodiscard]] bool equals(const MacObject& other) const override;
    QString text;
};
struct MacNumber final : MacObject
{
    QVariant number; ///< qint64, double or float
};
struct MacBoolean final : MacObject
{
    bool value = false;
};
struct MacArray final : MacObject
{
    void dissolve() override;
    QList<MacObject*> items;
};
struct MacDictionary final : MacObject
{
    void dissolve() override;
    QList<std::pair<MacObject*, MacObject*>> entries;
};
struct MacData final : MacObject
{
    QByteArray bytes;
};
struct MacUrl final : MacObject
{
    void dissolve() override;
    MacObject* string = nullptr; ///< what CFURLGetString gave
    QString path;                ///< without a slash at the end
    QString text;                ///< the whole URL; directories end in a slash
};
struct MacValue final : MacObject
{
    QVariant value; ///< AXValue of the core
    UInt32 type = 0;
};
struct MacElement final : MacObject
{
    [[nodiscard]] bool equals(const MacObject& other) const override;
    AxNodeRef node; ///< null for a process that is not there
    qint64 processIdentifier = 0;
};
/// What is nothing but a handle: a run loop, a bundle, a port.
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
        return object;
    }
    template <typename Object>
    Object* makePermanent()
    {
        auto* object = new Object;
        object->permanent = true;
        _permanent.append(object);
        return object;
    }

    /// The live object of this type that `reference` points to; a fault and null otherwise.
    template <typename Object>
    [[nodiscard]] Object* find(const void* reference)
    {
        auto* object = dynamic_cast<Object*>(_find(reference));
        if (!object)
            _wrongType(reference);
        return object;
    }
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
    QList<MacObject*> _permanent;
};

/// The reference, of the framework's type, to an object.
template <typename Reference>
[[nodiscard]] Reference referenceTo(MacObject* object)
{
    using Pointed = std::remove_const_t<std::remove_pointer_t<Reference>>;
    return static_cast<Pointed*>(static_cast<void*>(object));
}

/// A reference that its receiver must release.
template <typename Reference>
[[nodiscard]] Reference handOut(MacObject* object, const QString& function)
{
    if (!object)
        return nullptr;
    object->madeBy = function;
    if (!object->permanent)
        ++object->owned;
    return referenceTo<Reference>(object);
}

/// An object for a value; nobody owns it yet. Null for an invalid value.
[[nodiscard]] MacObject* objectFor(const QVariant& value);
[[nodiscard]] MacUrl* urlFor(const QString& path, bool directory);
/// The value of an object, as the tests compare it.
[[nodiscard]] QVariant valueOf(const void* reference);
/// The text of a string reference, "" for null.
[[nodiscard]] QString textOf(CFStringRef string);

} // namespace tarnwick
