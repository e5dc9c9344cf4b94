// SPDX-License-Identifier: MIT
#pragma once

#include <xkbcommon/xkbcommon.h>

#include <cstddef>
#include <memory>

namespace tarnwick {

struct FreeKeymap
{
    void operator()(xkb_keymap* keymap) const noexcept { xkb_keymap_unref(keymap); }
};
using CompositorKeymap = std::unique_ptr<xkb_keymap, FreeKeymap>;

/// The keyboard map that the compositor tells as a text of `size` bytes in a file, which is closed. Null when
/// it is none.
[[nodiscard]] CompositorKeymap compileKeymap(int file, std::size_t size);

} // namespace tarnwick
