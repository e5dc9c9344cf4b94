// SPDX-License-Identifier: MIT
#include "platform/linux/bus/BusText.h"

#include <cstring>

namespace tarnwick {

QString cutText(const char* bytes)
{
    auto length = static_cast<qsizetype>(std::strlen(bytes));
    if (length > MaximumTextBytes) {
        length = MaximumTextBytes;
        while (length > 0 && (static_cast<unsigned char>(bytes[length]) & 0xC0U) == 0x80U)
            --length;
    }
    return QString::fromUtf8(bytes, length);
}

} // namespace tarnwick
