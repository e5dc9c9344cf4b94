// SPDX-License-Identifier: MIT
#include "platform/qt/tray/TrayHost.h"

#include "moc_TrayHost.cpp"
