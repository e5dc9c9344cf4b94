// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AtspiBus.h"

namespace tarnwick {

/// The first menu bar in document order below `window`, not deeper than eight levels; empty when there is
/// none. Leaves out what may be large: documents, tables, lists, terminals, and anything with more than 200
/// children.
[[nodiscard]] BusReference findMenuBar(AtspiBus& bus, const BusReference& window, Deadline deadline);

} // namespace tarnwick
