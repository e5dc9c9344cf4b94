// SPDX-License-Identifier: MIT
#pragma once

#include "shortcut/Archive.h"

#include <cstddef>
#include <cstdint>

namespace tarnwick {

/// Makes a cell of a recorder from these bytes and lets it write itself down and be made again. What a target
/// returns: -1 for an archive of another form, which is the other target's.
int checkRecorder(const std::uint8_t* data, std::size_t size, Archive::Form form);

} // namespace tarnwick
