// SPDX-License-Identifier: MIT
#include "platform/linux/keys/KeyCodes.h"

#include <algorithm>
#include <array>

namespace tarnwick {

namespace {

/// X key codes by virtual key code, sixteen to a line; 0 is none.
// clang-format off
constexpr std::array<quint16, 128> X11KeyCodes{
    38, 39, 40, 41, 43, 42, 52, 53, 54, 55, 94, 56, 24, 25, 26, 27,
    29, 28, 10, 11, 12, 13, 15, 14, 21, 18, 16, 20, 17, 19, 35, 32,
    30, 34, 31, 33, 36, 46, 44, 48, 45, 47, 51, 59, 61, 57, 58, 60,
    23, 65, 49, 22, 0, 9, 134, 133, 50, 66, 64, 37, 62, 108, 105, 472,
    195, 91, 0, 63, 0, 86, 0, 77, 123, 122, 121, 106, 104, 0, 82, 196,
    197, 125, 90, 87, 88, 89, 83, 84, 85, 79, 198, 80, 81, 132, 97, 129,
    71, 72, 73, 69, 74, 75, 131, 95, 130, 191, 194, 192, 0, 76, 135, 96,
    0, 193, 118, 110, 112, 119, 70, 115, 68, 117, 67, 113, 114, 116, 111, 0,
};
// clang-format on

} // namespace

std::optional<quint16> x11KeyCodeOf(quint32 virtualKeyCode)
{
    if (virtualKeyCode >= X11KeyCodes.size() || X11KeyCodes[virtualKeyCode] == 0)
        return std::nullopt;
    return X11KeyCodes[virtualKeyCode];
}

std::optional<quint16> virtualKeyCodeOf(quint32 x11KeyCode)
{
    const auto* const found = std::find(X11KeyCodes.cbegin(), X11KeyCodes.cend(), x11KeyCode);
    if (x11KeyCode == 0 || found == X11KeyCodes.cend())
        return std::nullopt;
    return static_cast<quint16>(found - X11KeyCodes.cbegin());
}

} // namespace tarnwick
