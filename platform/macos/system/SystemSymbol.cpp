// SPDX-License-Identifier: MIT
#include "platform/macos/system/SystemSymbol.h"

#include <dlfcn.h>

namespace tarnwick {

void* systemSymbol(const char* name)
{
    // In every framework that the program is linked with, those inside them included.
    return dlsym(RTLD_DEFAULT, name);
}

} // namespace tarnwick
