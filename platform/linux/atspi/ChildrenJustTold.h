// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/BusReference.h"
#include "platform/linux/bus/Deadline.h"

#include <QList>

#include <optional>
#include <utility>

namespace tarnwick {

/// The children of a menu bar that were asked for together with something else, so that whoever reads the bar
/// a moment later need not wait for them again. GUI thread only.
class ChildrenJustTold
{
public:
    /// After this they have to be asked for again.
    static constexpr std::chrono::milliseconds Moment{20};

    void tell(const BusReference& bar, const std::optional<QList<BusReference>>& children)
    {
        _bar = bar;
        _children = children;
        _until = Deadline::in(Moment);
    }

    /// Gives them once; nothing when the children of this bar were not told just now.
    [[nodiscard]] std::optional<QList<BusReference>> take(const BusReference& bar)
    {
        const bool told = _children && _bar == bar && !_until.passed();
        return told ? std::exchange(_children, std::nullopt) : std::nullopt;
    }

private:
    BusReference _bar;
    std::optional<QList<BusReference>> _children;
    Deadline _until = Deadline::in({});
};

} // namespace tarnwick
