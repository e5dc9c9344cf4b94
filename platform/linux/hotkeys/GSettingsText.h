// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace tarnwick {

/// The texts of the gsettings program. Pure functions.
namespace gsettings_text {

/// One line of "list-recursively": a key of a schema with its value if that is a text or a list of texts.
struct Setting
{
    QString schema;
    QString key;
    QStringList values;
};

/// The settings among the lines, in their order; lines that are none are left out.
[[nodiscard]] QList<Setting> parseListing(const QByteArray& output);

/// The texts in the text form of a string or an array of strings ('a', "it's", ['a', 'b'], @as []). Nothing
/// for values of other types.
[[nodiscard]] std::optional<QStringList> parseStrings(const QString& value);

} // namespace gsettings_text

} // namespace tarnwick
