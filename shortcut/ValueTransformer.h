// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>

#include <memory>

namespace tarnwick {

/// Turns the values of one side of a binding into those of the other. GUI thread only.
class ValueTransformer
{
public:
    virtual ~ValueTransformer() = default;

    /// Whether reverseTransformedValue() may be called.
    [[nodiscard]] virtual bool classAllowsReverseTransformation() const = 0;
    /// Invalid when there is nothing to give.
    [[nodiscard]] virtual QVariant transformedValue(const QVariant& value) const = 0;
    [[nodiscard]] virtual QVariant reverseTransformedValue(const QVariant& value) const;

    /// Null for a name that was not set. A null `transformer` takes the name away.
    [[nodiscard]] static std::shared_ptr<ValueTransformer> valueTransformerForName(const QString& name);
    static void setValueTransformerForName(const std::shared_ptr<ValueTransformer>& transformer,
                                           const QString& name);

protected:
    ValueTransformer() = default;
    ValueTransformer(const ValueTransformer&) = default;
    ValueTransformer& operator=(const ValueTransformer&) = default;
    ValueTransformer(ValueTransformer&&) = default;
    ValueTransformer& operator=(ValueTransformer&&) = default;
};

} // namespace tarnwick
