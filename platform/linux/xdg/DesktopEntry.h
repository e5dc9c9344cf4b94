// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>

namespace tarnwick {

/// The main group of a desktop entry file: its keys and values, localised keys under their full names
/// ("Name[de]"). What is not understood is left out.
class DesktopEntry
{
public:
    /// Nothing when there is no main group, or nothing in it.
    [[nodiscard]] static std::optional<DesktopEntry> parse(const QByteArray& contents);
    /// Nothing when `path` cannot be read; files of more than 1 MiB are no desktop entries.
    [[nodiscard]] static std::optional<DesktopEntry> read(const QString& path);

    /// With its escapes resolved; empty when missing.
    [[nodiscard]] QString string(const QString& key) const;
    [[nodiscard]] QStringList strings(const QString& key) const;
    /// `otherwise` when missing or neither "true" nor "false".
    [[nodiscard]] bool boolean(const QString& key, bool otherwise) const;

    /// The words of the command in "Exec", field codes left out; empty when its quoting is wrong.
    [[nodiscard]] QStringList command() const;

    /// `text` as the value of a key, with everything escaped that needs to be.
    [[nodiscard]] static QString stringValue(const QString& text);
    /// `command` as the value of "Exec", with everything quoted and escaped that needs to be.
    [[nodiscard]] static QString execValue(const QStringList& command);

private:
    QHash<QString, QString> _values;
};

} // namespace tarnwick
