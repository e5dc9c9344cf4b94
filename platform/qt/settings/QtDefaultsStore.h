// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/DefaultsStore.h"
#include "platform/qt/settings/SettingsFile.h"

#include <QSet>
#include <QTimer>

namespace tarnwick {

/// Settings in a text file of "key=value" lines, which only the user may read. What another program changes
/// in the file meanwhile is kept. Every value reads back as its text. Changes are written from the event
/// loop, and what cannot be written is tried again at the next change and at the end.
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
    /// Takes 0.2 s at most while another program writes.
    void synchronize() override;

private:
    void _write(std::chrono::milliseconds patience);

    SettingsFile _file;
    QSettings::SettingsMap _settings; ///< as they are now, written or not
    QSet<QString> _changed;           ///< set or removed, and not yet in the file
    QTimer _pending;
};

} // namespace tarnwick
