// SPDX-License-Identifier: MIT
// The files "kdeglobals" that anybody may have written, that of most weight first, a zero byte between them.
#include "platform/linux/look/LookSources.h"
#include "tests/fuzz/Looks.h"

using namespace tarnwick;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    QList<QByteArray> layers;
    while (!input.atEnd() && layers.size() < 4)
        layers.append(input.until('\0').toByteArray());
    const Look look = lookOfKdeGlobals(layers);
    requireLook(look);
    require(!look.paletteStandsIn, "KDE tells its colours itself");
    if (layers.isEmpty())
        return 0;
    const Look first = lookOfKdeGlobals(layers.first(1));
    requireLook(first);
    require(!first.palette || look.palette, "a lower layer takes nothing away");
    require(!first.font || first.font == look.font, "the first layer that names a font has its way");
    require(!first.menuFont || first.menuFont == look.menuFont, "and one that names the font of menus");
    require(!first.reducesMotion || look.reducesMotion, "and one that wants less motion");
    return 0;
}
