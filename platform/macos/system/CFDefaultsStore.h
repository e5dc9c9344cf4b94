// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/DefaultsStore.h"

namespace tarnwick {

/// The user's defaults domain of this application, as the system keeps it. Whole numbers read back as signed
/// 64 bits.
class CFDefaultsStore final : public DefaultsStore
{
public:
    ~CFDefaultsStore() override;

    [[nodiscard]] std::optional<QVariant> value(const QString& key) const override;
    void setValue(const QString& key, const QVariant& value) override;
    void removeValue(const QString& key) override;
    void synchronize() override;
};

} // namespace tarnwick
