// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/RememberedKeyBindings.h"

namespace tarnwick {

bool RememberedKeyBindings::knows(const BusReference& item) const
{
    const auto found = _told.constFind(item);
    return found != _told.cend() && !found->until.passed();
}

std::optional<QString> RememberedKeyBindings::of(const AtspiFacts& item) const
{
    const auto found = _told.constFind(item.reference);
    if (found == _told.cend() || item.name != found->name || item.role != found->role)
        return std::nullopt;
    return found->keyBinding;
}

void RememberedKeyBindings::remember(const AtspiFacts& item)
{
    if (!item.name || !item.role || !item.keyBinding || item.keyBinding->isEmpty()) {
        _told.remove(item.reference);
        return;
    }
    if (_told.size() >= MaximumItems)
        _makeRoom();
    _told.insert(item.reference, {*item.name, *item.role, *item.keyBinding, Deadline::in(Time)});
}

void RememberedKeyBindings::_makeRoom()
{
    _told.removeIf([](const QHash<BusReference, Told>::iterator& told) { return told->until.passed(); });
    if (_told.size() >= MaximumItems)
        _told.clear();
}

} // namespace tarnwick
