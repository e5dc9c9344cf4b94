// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/SharedPort.h"

#include <QFont>

namespace tarnwick {

/// The desktop's fonts. Sizes are points; a size of 0 or less asks for the font's default size. GUI thread
/// only.
class Fonts : public SharedPort<Fonts>
{
public:
    virtual ~Fonts() = default;

    enum Trait { BoldTrait = 2 };

    [[nodiscard]] virtual QFont menuBarFontOfSize(double size) const = 0;
    [[nodiscard]] virtual QFont menuFontOfSize(double size) const = 0;
    [[nodiscard]] virtual QFont systemFontOfSize(double size) const = 0;
    [[nodiscard]] virtual double labelFontSize() const = 0;
    [[nodiscard]] virtual double smallSystemFontSize() const = 0;

    /// `font` with `trait` added, everything else kept.
    [[nodiscard]] virtual QFont convertFontToHaveTrait(const QFont& font, Trait trait) const = 0;
};

} // namespace tarnwick
