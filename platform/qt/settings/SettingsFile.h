// SPDX-License-Identifier: MIT
#pragma once

#include "platform/qt/settings/SettingsText.h"

#include <QString>

#include <chrono>
#include <functional>
#include <optional>

namespace tarnwick {

/// The file of the settings on the disk. At every moment it holds one whole set of settings, the old ones or
/// the new ones, whoever is killed or runs out of room meanwhile. Whatever fails changes nothing and says
/// nothing.
class SettingsFile
{
public:
    enum class Outcome {
        Written,
        Busy,   ///< another program is writing
        Refused ///< there is no room, or no right to write
    };

    /// `path` names the file or a symbolic link to it, which stays one.
    explicit SettingsFile(QString path) : _path(std::move(path)) {}

    /// What the file holds; no settings when there is no file, nothing when it cannot be read: then it is not
    /// ours to replace.
    [[nodiscard]] std::optional<QSettings::SettingsMap> read() const;

    /// Replaces what the file holds by what `change` makes of it, for the user only; missing folders are made
    /// for the user only. One program does this at a time: it waits up to `patience` for another one. A file
    /// that is not the user's, that he may not write to or cannot read, is left alone.
    [[nodiscard]] Outcome update(const std::function<void(QSettings::SettingsMap&)>& change,
                                 std::chrono::milliseconds patience) const;

    /// Takes the rights of others at the user's own file away.
    void keepPrivate() const;

private:
    /// The file itself, with all links followed.
    [[nodiscard]] QString _target() const;

    QString _path;
};

} // namespace tarnwick
