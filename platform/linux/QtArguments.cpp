// SPDX-License-Identifier: MIT
#include "platform/linux/QtArguments.h"

namespace tarnwick {

namespace {

char noGrab[] = "-nograb";

} // namespace

QtArguments::QtArguments(int argc, char** argv) : _argc(argc + 1), _argv(argv, argv + argc)
{
    _argv.push_back(noGrab);
    _argv.push_back(nullptr);
}

} // namespace tarnwick
