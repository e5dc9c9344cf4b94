// SPDX-License-Identifier: MIT
#pragma once

#include "shortcut/Archive.h"

#include <QByteArray>

namespace tarnwick {

/// Sets up what a recorder cell needs around it.
void prepareRecorder();

/// Makes a cell from `archive` and lets it write itself down and be made again.
void checkRecorder(const Archive& archive);

} // namespace tarnwick
