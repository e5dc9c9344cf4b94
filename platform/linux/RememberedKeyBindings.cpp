// SPDX-License-Identifier: MIT
#include "platform/linux/RememberedKeyBindings.h"

#include <chrono>

namespace tarnwick {

double RememberedKeyBindings::steadySeconds()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

bool RememberedKeyBindings::knows(const BusReference& item) const
{
    const auto found = _told.constFind(item);
    return found != _told.cend() && _now() < found->until;
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
    _told.insert(item.reference, {*item.name, *item.role, *item.keyBinding, _now() + Seconds});
}

void RememberedKeyBindings::_makeRoom()
{
    const double now = _now();
    _told.removeIf([now](const QHash<BusReference, Told>::iterator& told) { return told->until <= now; });
    if (_told.size() >= MaximumItems)
        _told.clear();
}

} // namespace tarnwick
