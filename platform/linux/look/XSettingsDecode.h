// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVariant>

#include <optional>

namespace tarnwick {

/// What a desktop's settings program tells to all X clients: names such as "Gtk/FontName" with an int or a
/// QString. Colours are left out.
using XSettingValues = QHash<QString, QVariant>;

/// The contents of the settings program's property, in either byte order. Nothing when they end early or hold
/// a type that there is not.
[[nodiscard]] std::optional<XSettingValues> decodeXSettings(const QByteArray& contents);

} // namespace tarnwick
