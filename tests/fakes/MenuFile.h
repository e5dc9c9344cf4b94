// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

namespace tarnwick {

/// One entry of a menu written down as text.
struct MenuFileEntry
{
    QString title;
    QString shortcut; ///< such as "Ctrl+Shift+S"; empty for none
    bool separator = false;
    bool enabled = true;
    bool checkable = false;
    bool checked = false;
    QList<MenuFileEntry> children;
};

/// Reads menu bars from text. The format, which the fixture programs read as well, is written down in
/// tests/data/README.md: two spaces a level, "-" disabled, "*" checked, "+" checkable, "---" a separator, a
/// shortcut after a tab, "\" quotes. Throws std::runtime_error that names the line for what is no menu.
class MenuFile
{
public:
    [[nodiscard]] static QList<MenuFileEntry> parse(const QString& text);
    /// The menu bar in tests/data with this name, without ".menu".
    [[nodiscard]] static QList<MenuFileEntry> read(const QString& name);
};

} // namespace tarnwick
