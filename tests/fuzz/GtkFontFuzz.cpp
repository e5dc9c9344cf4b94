// SPDX-License-Identifier: MIT
// A font as somebody may have written it into the settings of GTK.
#include "platform/linux/look/LookSources.h"
#include "tests/fuzz/Looks.h"

using namespace tarnwick;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto description =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto font = fontOfGtk(description);
    requireFont(font);
    const QString words = description.split(u' ', Qt::SkipEmptyParts).join(u' ');
    require(!font || words.contains(font->family()), "the family is one that was named");
    require(fontOfGtk(u' ' + description + u' ') == font, "blanks around it make no difference");
    return 0;
}
