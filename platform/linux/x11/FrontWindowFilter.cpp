// SPDX-License-Identifier: MIT
#include "platform/linux/x11/FrontWindowFilter.h"

namespace tarnwick {

std::optional<X11Window> FrontWindowFilter::see(const std::optional<X11Window>& seen, Time now)
{
    const bool none = seen && !*seen;
    if (!none) {
        _noneSince.reset();
    } else if (_front) {
        _noneSince = _noneSince.value_or(now);
        if (now - *_noneSince < NoneCountsAfter)
            return std::nullopt;
        _noneSince.reset();
    }
    if (!seen || *seen == _front)
        return std::nullopt;
    _front = *seen;
    return _front;
}

std::optional<FrontWindowFilter::Time> FrontWindowFilter::due() const
{
    return _noneSince ? std::optional(*_noneSince + NoneCountsAfter) : std::nullopt;
}

} // namespace tarnwick
