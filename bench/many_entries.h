// SPDX-License-Identifier: MIT
#pragma once

#include "search/SearchIndex.h"

namespace tarnwick {

/// The entries of a .menu file, the whole bar again and again below entries of one bar, menu by menu until
/// there are at least so many. None when it cannot be read.
[[nodiscard]] SearchIndex manyEntries(const char* path, int entries);

} // namespace tarnwick
