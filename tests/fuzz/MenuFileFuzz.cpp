// SPDX-License-Identifier: MIT
// Menus as text. What is read is written down again, and must read the same.
#include "tests/fixtures/MenuText.h"
#include "tests/fuzz/Fuzzing.h"

#include <sstream>
#include <string_view>

using tarnwick::require;
using tarnwick::fixture::MenuText;

namespace {

constexpr std::size_t Deepest = 64; // beyond it the lines get longer than what they say

std::string quoted(const std::string& title)
{
    constexpr std::string_view meaningful = "-*+@~^# \\"; // at the beginning
    std::string text;
    for (const char c : title) {
        if (c == '\t' || c == '\n')
            (text += '\\') += c == '\t' ? 't' : 'n';
        else if (c == '\\' || (text.empty() && meaningful.find(c) != std::string_view::npos))
            (text += '\\') += c;
        else
            text += c;
    }
    return text;
}

std::string prefixes(const MenuText& entry)
{
    std::string text;
    text += entry.enabled ? "" : "-";
    text += entry.hidden ? "~" : "";
    text += entry.filledWhenOpened ? "^" : "";
    if (entry.radio)
        text += '@';
    if (entry.checked)
        text += '*';
    else if (entry.checkable && !entry.radio)
        text += '+';
    return text;
}

std::string line(const MenuText& entry)
{
    if (entry.separator)
        return "---";
    const bool bare = !entry.title.empty() && entry.shortcut.empty();
    return prefixes(entry) + quoted(entry.title) + (bare ? "" : '\t' + entry.shortcut);
}

void write(const std::vector<MenuText>& level, std::size_t depth, std::ostream& lines)
{
    for (const MenuText& entry : level) {
        lines << std::string(2 * depth, ' ') << line(entry) << '\n';
        write(entry.children, depth + 1, lines);
    }
}

bool areSame(const std::vector<MenuText>& left, const std::vector<MenuText>& right);

bool isSame(const MenuText& left, const MenuText& right)
{
    return left.title == right.title && left.shortcut == right.shortcut && left.enabled == right.enabled &&
           left.checkable == right.checkable && left.checked == right.checked && left.radio == right.radio &&
           left.separator == right.separator && left.filledWhenOpened == right.filledWhenOpened &&
           left.hidden == right.hidden && areSame(left.children, right.children);
}

bool areSame(const std::vector<MenuText>& left, const std::vector<MenuText>& right)
{
    if (left.size() != right.size())
        return false;
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (!isSame(left[i], right[i]))
            return false;
    }
    return true;
}

std::size_t count(const std::vector<MenuText>& level, std::size_t depth)
{
    require(depth <= Deepest, "a menu is no deeper than its lines are indented");
    std::size_t entries = level.size();
    for (const MenuText& entry : level) {
        require(!entry.checked || entry.checkable, "what is checked can be checked");
        require(!entry.radio || entry.checkable, "a choice can be checked");
        entries += count(entry.children, depth + 1);
    }
    return entries;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    std::istringstream lines(text);
    const std::vector<MenuText> bar = MenuText::read(lines);
    require(count(bar, 0) <= size, "no more entries than lines");

    std::ostringstream written;
    write(bar, 0, written);
    std::istringstream again(written.str());
    require(areSame(MenuText::read(again), bar), "a menu that is written down reads the same");
    return 0;
}
