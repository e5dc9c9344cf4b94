// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/DefaultsStore.h"
#include "tests/fakes/Journal.h"

#include <QMap>
#include <QStringList>

namespace tarnwick {

/// Settings in memory; two fakes that share `values` are one program before and after a restart.
class FakeDefaultsStore final : public DefaultsStore
{
public:
    QMap<QString, QVariant> values; ///< lever and look: what the settings file holds
    bool readsTexts = false;        ///< lever: give numbers and booleans back as text, as a text file does
    QStringList written;            ///< look: the keys in the order of all writes and removals
    int synchronized = 0;           ///< look: how often pending writes were forced out
    Journal* journal = nullptr;     ///< "read <key>"

    [[nodiscard]] std::optional<QVariant> value(const QString& key) const override
    {
        note(journal, QStringLiteral("read ") + key);
        const auto found = values.constFind(key);
        if (found == values.cend())
            return std::nullopt;
        return readsTexts && found->canConvert<QString>() ? QVariant(found->toString()) : *found;
    }

    void setValue(const QString& key, const QVariant& value) override
    {
        written.append(key);
        values.insert(key, value);
    }

    void removeValue(const QString& key) override
    {
        written.append(key);
        values.remove(key);
    }

    void synchronize() override { ++synchronized; }
};

} // namespace tarnwick
