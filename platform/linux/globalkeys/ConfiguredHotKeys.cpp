// SPDX-License-Identifier: MIT
#include "platform/linux/globalkeys/ConfiguredHotKeys.h"

#include "moc_ConfiguredHotKeys.cpp"
