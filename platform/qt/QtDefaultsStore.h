// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/DefaultsStore.h"

#include <QSettings>

namespace tarnwick {

/// Settings in a text file of "key=value" lines, which only the user may read. What another program changes
/// in the file meanwhile is kept. Numbers and booleans read back as texts; dictionaries and lists are kept as
/// JSON text and read back as such.
class QtDefaultsStore final : public DefaultsStore
{
public:
    /// `path` names the file; it and its folder are made with the first write.
    explicit QtDefaultsStore(const QString& path);
    ~QtDefaultsStore() override;
    QtDefaultsStore(const QtDefaultsStore&) = delete;
    QtDefaultsStore& operator=(const QtDefaultsStore&) = delete;

    /// The file of this user's settings.
    [[nodiscard]] static QString standardPath();

    [[nodiscard]] std::optional<QVariant> value(const QString& key) const override;
    void setValue(const QString& key, const QVariant& value) override;
    void removeValue(const QString& key) override;
    void synchronize() override;

private:
    void _keepPrivate() const;

    mutable QSettings _settings;
};

} // namespace tarnwick
