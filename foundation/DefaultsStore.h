// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/SharedPort.h"

#include <QString>
#include <QVariant>

#include <optional>

namespace tarnwick {

/// Where the user's settings are kept between runs: one flat table. Reading and writing never fail visibly:
/// what cannot be written stays readable for the life of the process. GUI thread only.
class DefaultsStore : public SharedPort<DefaultsStore>
{
public:
    virtual ~DefaultsStore() = default;

    /// As stored, of whatever type the store reads back (a text file gives texts); nothing when absent or
    /// unreadable.
    [[nodiscard]] virtual std::optional<QVariant> value(const QString& key) const = 0;
    /// A boolean, a number or a text: UserDefaults turns anything else into a text.
    virtual void setValue(const QString& key, const QVariant& value) = 0;
    virtual void removeValue(const QString& key) = 0;

    /// Writes out what is pending.
    virtual void synchronize() = 0;
};

} // namespace tarnwick
