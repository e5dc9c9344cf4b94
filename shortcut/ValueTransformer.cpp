// SPDX-License-Identifier: MIT
#include "shortcut/ValueTransformer.h"

#include <QHash>

namespace tarnwick {

namespace {

QHash<QString, std::shared_ptr<ValueTransformer>>& transformersByName()
{
    static QHash<QString, std::shared_ptr<ValueTransformer>> transformers;
    return transformers;
}

} // namespace

QVariant ValueTransformer::reverseTransformedValue(const QVariant& /*value*/) const
{
    return {};
}

std::shared_ptr<ValueTransformer> ValueTransformer::valueTransformerForName(const QString& name)
{
    return transformersByName().value(name);
}

void ValueTransformer::setValueTransformerForName(const std::shared_ptr<ValueTransformer>& transformer,
                                                  const QString& name)
{
    if (transformer)
        transformersByName().insert(name, transformer);
    else
        transformersByName().remove(name);
}

} // namespace tarnwick
