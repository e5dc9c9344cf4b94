// SPDX-License-Identifier: MIT
// A desktop entry that anybody may have installed; what is read of it can be written into one of our own.
#include "platform/linux/xdg/DesktopEntry.h"
#include "tests/fuzz/Fuzzing.h"

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

DesktopEntry entryWith(const QString& key, const QString& value)
{
    const auto entry = DesktopEntry::parse(u"[Desktop Entry]\n%1=%2\n"_s.arg(key, value).toUtf8());
    require(entry.has_value(), "an entry with a main group is one");
    return *entry;
}

void checkText(const QString& text)
{
    require(text.isValidUtf16(), "a text is a text");
    require(entryWith(u"Name"_s, DesktopEntry::stringValue(text)).string(u"Name"_s) == text,
            "a text that is written is read back");
}

void checkCommand(const QStringList& command)
{
    for (const QString& word : command)
        require(word.isValidUtf16(), "a word is a text");
    require(entryWith(u"Exec"_s, DesktopEntry::execValue(command)).command() == command,
            "a command that is written is read back");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray contents(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto entry = DesktopEntry::parse(contents);
    require(!entry || contents.contains("[Desktop Entry]"), "only what has a main group is an entry");
    if (!entry)
        return 0;
    for (const auto& key : {u"Name"_s, u"Type"_s, u"StartupWMClass"_s, u"Exec"_s})
        checkText(entry->string(key));
    for (const QString& text : entry->strings(u"OnlyShowIn"_s))
        checkText(text);
    checkCommand(entry->command());
    require(entry->boolean(u"NoDisplay"_s, true) || !entry->boolean(u"NoDisplay"_s, false),
            "what is false is not true");
    return 0;
}
