// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonArray>
#include <QList>
#include <QString>

#include <functional>

namespace tarnwick {

class AppAccessibility;
class Menu;

/// One entry of a mirrored menu, as a person would tell of it.
struct ReportedEntry
{
    QString title;
    bool separator = false;
    bool checked = false;
    bool enabled = false;
    bool alternate = false;
    QString keyEquivalent; ///< in the desktop's way of writing
    bool hasSubmenu = false;
    bool submenuRead = false;
    QList<ReportedEntry> entries; ///< of its submenu, when that was read
};

/// Reads mirrored menus into plain data and writes that down.
class MenuReport
{
public:
    using KeyEquivalentText = std::function<QString(const QString& keyEquivalent, quint64 modifierMask)>;

    /// `breathe` runs before each submenu is read: it lets the event loop come round, so that each has a time
    /// limit of its own.
    MenuReport(AppAccessibility& mirror, KeyEquivalentText keyEquivalentText, std::function<void()> breathe);

    /// The entries of the mirror's menu; with `all` those of every submenu as well, at most 16 levels deep.
    [[nodiscard]] QList<ReportedEntry> read(bool all);

    /// As a `.menu` text: two blanks a level, "-" before a disabled entry, "*" before a checked one, "---" a
    /// separator, the key equivalent after a tab.
    [[nodiscard]] static QString text(const QList<ReportedEntry>& entries);
    [[nodiscard]] static QJsonArray json(const QList<ReportedEntry>& entries);

private:
    [[nodiscard]] QList<ReportedEntry> _read(Menu& menu, int levels);

    AppAccessibility& _mirror;
    KeyEquivalentText _keyEquivalentText;
    std::function<void()> _breathe;
};

} // namespace tarnwick
