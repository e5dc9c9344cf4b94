// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace tarnwick {

/// Files of groups in brackets and lines of "key=value", as desktops, their programs and Qt write them. They
/// differ in how names and values are written down, which is the caller's to read. Whatever a file holds,
/// reading it never fails.
namespace key_file {

struct Entry
{
    std::optional<QByteArray> group; ///< what is between the outer brackets; none before the first group
    QByteArray key;                  ///< never empty
    QByteArray value;
};

/// The entries in the order of the file, the blanks around their parts left out. Lines that begin with "#" or
/// ";" are comments; what is neither that nor a group nor an entry is left out.
[[nodiscard]] QList<Entry> entriesOf(const QByteArray& contents);

/// UTF-8 as it is written: what looks like a byte-order mark is a character like others.
[[nodiscard]] QString textOf(const QByteArray& bytes);

/// A value as desktops and their programs mean it: a backslash stands before what could not be written, and,
/// where there is a separator of lists, before each that separates nothing. One before anything else is
/// meant.
[[nodiscard]] QString unescaped(const QString& value, QChar listSeparator = {});

} // namespace key_file

} // namespace tarnwick
