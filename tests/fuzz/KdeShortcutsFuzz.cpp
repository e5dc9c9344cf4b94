// SPDX-License-Identifier: MIT
// A kglobalshortcutsrc that anybody may have written.
#include "platform/linux/hotkeys/KdeShortcuts.h"
#include "tests/fuzz/Shortcuts.h"

using namespace tarnwick;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray contents(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    requireShortcuts(parseKdeShortcuts(contents));
    return 0;
}
