// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayList>

namespace tarnwick {

/// What an object of another program says of itself when it is asked to describe what there is.
struct BusObject
{
    QByteArrayList interfaces;
    QByteArrayList children; ///< names of the objects right below

    /// From the text of an answer to "Introspect". Of one that is no such text, what could be read of it; no
    /// more than 1,000 of either.
    [[nodiscard]] static BusObject fromIntrospection(const QByteArray& text);

    friend bool operator==(const BusObject&, const BusObject&) = default;
};

/// The object path of one below another. Empty when the name is not valid.
[[nodiscard]] QByteArray childPath(const QByteArray& path, const QByteArray& name);

} // namespace tarnwick
