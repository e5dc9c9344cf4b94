// SPDX-License-Identifier: MIT
// The shortcuts channel of Xfce, which anybody may have written.
#include "platform/linux/hotkeys/XfceShortcuts.h"
#include "tests/fuzz/Shortcuts.h"

using namespace tarnwick;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray xml(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    auto channel = XfceShortcuts::parse(xml);
    if (!channel)
        return 0;
    const QList<DesktopShortcut> shortcuts = channel->shortcuts();
    requireShortcuts(shortcuts);
    channel->merge(*XfceShortcuts::parse(xml));
    require(channel->shortcuts() == shortcuts, "a channel that is laid over itself stays as it was");
    XfceShortcuts empty;
    empty.merge(*channel);
    require(empty.shortcuts() == shortcuts, "a channel that is laid over nothing is as it was");
    return 0;
}
