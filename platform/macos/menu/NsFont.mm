// SPDX-License-Identifier: MIT
#include "platform/macos/menu/NsFont.h"

#include "platform/macos/system/NsText.h"

namespace tarnwick {

NSFont* nsFont(const QFont& font)
{
    NSFontManager* manager = [NSFontManager sharedFontManager];
    const auto size = static_cast<CGFloat>(font.pointSizeF());
    const NSFontTraitMask traits = font.bold() ? NSBoldFontMask : 0;
    // Names that begin with a full stop are the system's own fonts, which cannot be asked for by name.
    const bool systemFont = font.family().startsWith(QLatin1Char('.'));
    NSFont* native =
        systemFont ? nil : [manager fontWithFamily:nsString(font.family()) traits:traits weight:5 size:size];
    if (native)
        return native;
    native = [NSFont menuBarFontOfSize:size];
    return font.bold() ? [manager convertFont:native toHaveTrait:NSBoldFontMask] : native;
}

} // namespace tarnwick
