// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/elements/LinuxReading.h"

#include <QStringList>

namespace tarnwick {

/// Tells a person from where the menus of a window can be read, which of it is read, what is missing in each
/// and what could be switched on. Asks the application what a reading asks. GUI thread only.
class SourceReport
{
public:
    /// Must outlive this.
    explicit SourceReport(LinuxReading& reading) : _reading(reading) {}

    /// One line a source, then others. Without a process, of what is in front.
    [[nodiscard]] QStringList lines(std::optional<qint64> processIdentifier);

private:
    /// What the accessibility tree has of the window.
    struct InTree
    {
        QString toolkit; ///< empty when it is not told
        BusReference bar;
        qsizetype menus = 0;
        qsizetype empty = 0; ///< of these
    };

    [[nodiscard]] FrontWindow _windowOf(std::optional<qint64> processIdentifier);
    [[nodiscard]] InTree _inTree(const FrontWindow& window);
    [[nodiscard]] BusReference _barInTree(const FrontWindow& window);
    [[nodiscard]] QString _toolkitOf(const FrontWindow& window);
    [[nodiscard]] QString _exported(const FrontWindow& window);
    [[nodiscard]] QString _exportedForOutside(const FrontWindow& window);
    [[nodiscard]] QString _read(const FrontWindow& window);
    [[nodiscard]] QString _nameOf(const MenuSource& source) const;
    [[nodiscard]] static QStringList _advice(const InTree& tree, const QString& exported);

    LinuxReading& _reading;
};

} // namespace tarnwick
