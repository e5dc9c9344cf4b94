// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/hotkeys/GSettingsText.h"

#include <QElapsedTimer>

#include <chrono>

namespace tarnwick {

/// The settings of GNOME and its kin, read by their own command-line program, in its own process: reading a
/// schema that is not installed ends the process that reads. Everything that one object reads shares one time
/// limit.
class GSettings
{
public:
    explicit GSettings(std::chrono::milliseconds limit);

    /// All settings of text type in `schemas`, in that order; a schema may name its place as "schema:/path/".
    /// Schemas that are not installed are left out. Nothing when the program is missing, fails or is late.
    [[nodiscard]] std::optional<QList<gsettings_text::Setting>> read(const QStringList& schemas);

    /// The names below a folder of the settings database; empty when it cannot be asked.
    [[nodiscard]] QStringList folders(const QString& path);

private:
    /// The output of each command, run at the same time; a null one for each that fails.
    [[nodiscard]] QList<QByteArray> _outputs(const QString& program, const QList<QStringList>& arguments);

    std::chrono::milliseconds _limit;
    QElapsedTimer _since;
    std::optional<QStringList> _installed;
};

} // namespace tarnwick
