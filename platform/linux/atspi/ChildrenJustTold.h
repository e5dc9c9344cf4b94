// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/BusReference.h"
#include "platform/linux/bus/Deadline.h"

#include <QList>

#include <optional>
#include <utility>

namespace tarnwick {

/// The children of a menu bar that were asked for together with something else, so that who reads the bar the
/// next moment need not wait for them again. GUI thread only.
class ChildrenJustTold
{
public:
    /// After this they are to be asked for anew.
    static constexpr std::chrono::milliseconds Moment{20};

    void tell(const BusReference& bar, const std::optional<QList<BusReference>>& children)
    {
        _bar = bar;
        _children = children;
        _until = Deadline::in(Moment);
    }

    /// Once; nothing when those of this bar were not told just now.
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
