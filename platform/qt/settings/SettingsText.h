// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QSettings>

namespace tarnwick {

/// The text of a settings file: groups in brackets, lines of "key=value", those of the group "General" known
/// by their key alone. Values are texts; whatever the file holds, reading it makes texts only and never
/// fails.
namespace settings_text {

[[nodiscard]] QSettings::SettingsMap parse(const QByteArray& contents);
[[nodiscard]] QByteArray write(const QSettings::SettingsMap& settings);

} // namespace settings_text

} // namespace tarnwick
