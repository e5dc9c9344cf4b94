// SPDX-License-Identifier: MIT
#include "platform/linux/front/FrontApplication.h"

#include "moc_FrontApplication.cpp"
