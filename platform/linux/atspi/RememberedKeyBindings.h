// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AtspiFacts.h"
#include "platform/linux/bus/Deadline.h"

#include <QHash>

namespace tarnwick {

/// What items have told of their keys not long ago. An application of GTK 3 makes a new text for each such
/// question and never frees it: asked again and again, it would grow without bound.
///
/// An item is the same as long as its reference, its name and its role are. That it has no keys is not
/// remembered: to ask such an item again costs the application nothing.
class RememberedKeyBindings
{
public:
    static constexpr std::chrono::seconds Time{60};
    static constexpr qsizetype MaximumItems = 5000;

    /// Whether something is remembered of an object of which nothing else is known yet.
    [[nodiscard]] bool knows(const BusReference& item) const;
    /// Nothing when the item is another one by now.
    [[nodiscard]] std::optional<QString> of(const AtspiFacts& item) const;
    /// What the item has just told.
    void remember(const AtspiFacts& item);

    [[nodiscard]] qsizetype count() const { return _told.size(); }

private:
    struct Told
    {
        QString name;
        quint32 role;
        QString keyBinding;
        Deadline until;
    };

    void _makeRoom();

    QHash<BusReference, Told> _told;
};

} // namespace tarnwick
