// SPDX-License-Identifier: MIT
// A kglobalshortcutsrc that anybody may have written.
#include "platform/linux/KdeShortcuts.h"
#include "tests/fuzz/Shortcuts.h"

using namespace tarnwick;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray contents(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QList<DesktopShortcut> shortcuts = parseKdeShortcuts(contents);
    requireShortcuts(shortcuts);
    require(parseKdeShortcuts(contents + "\n[other]\n") == shortcuts, "a group without keys adds nothing");
    return 0;
}
