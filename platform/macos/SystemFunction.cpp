// SPDX-License-Identifier: MIT
#include "platform/macos/SystemFunction.h"

#include <dlfcn.h>

namespace tarnwick {

void* systemFunction(const char* name)
{
    return dlsym(RTLD_DEFAULT, name);
}

} // namespace tarnwick
