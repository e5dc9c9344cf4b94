// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/CompositorKeymap.h"

#include <cstring>
#include <sys/mman.h>
#include <unistd.h>

namespace tarnwick {

CompositorKeymap compileKeymap(int file, std::size_t size)
{
    void* const text = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
    close(file);
    if (text == MAP_FAILED)
        return nullptr;
    xkb_context* const context = xkb_context_new(XKB_CONTEXT_NO_FLAGS);
    // The end of the text is part of it.
    const auto* const begin = static_cast<const char*>(text);
    CompositorKeymap keymap(context ? xkb_keymap_new_from_buffer(context, begin, strnlen(begin, size),
                                                                 XKB_KEYMAP_FORMAT_TEXT_V1,
                                                                 XKB_KEYMAP_COMPILE_NO_FLAGS)
                                    : nullptr);
    xkb_context_unref(context);
    munmap(text, size);
    return keymap;
}

} // namespace tarnwick
