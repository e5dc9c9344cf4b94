// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/AtspiKeyBinding.h"

#include <gtest/gtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>

using namespace tarnwick;

namespace {

struct Row
{
    const char* sentence;
    AtspiToolkit toolkit;
    const char* text;
    const char* name;
    std::optional<KeyBinding> binding;
};

constexpr auto Gtk = AtspiToolkit::Gtk;
constexpr auto Bridge = AtspiToolkit::Bridge;
constexpr auto QtToolkit = AtspiToolkit::Qt;
constexpr auto Unknown = AtspiToolkit::Unknown;

KeyBinding keys(const char* modifiers, xkb_keysym_t key)
{
    const QLatin1StringView held(modifiers);
    return {held.contains(u'c'), held.contains(u'a'), held.contains(u's'), held.contains(u'w'), key};
}

const Row rows[] = {
    {"the third field is the accelerator", Gtk, "n;<Alt>f:n;<Primary>n", "New", keys("c", XKB_KEY_n)},
    {"the first two may be empty", Gtk, ";;<Primary>n", "New", keys("c", XKB_KEY_n)},
    {"there may be none", Gtk, "n;<Alt>f:n;", "New", std::nullopt},
    {"nor its field", Gtk, "n;<Alt>f:n", "New", std::nullopt},
    {"a mnemonic alone is no shortcut", Gtk, "n", "New", std::nullopt},
    {"nothing is none", Gtk, "", "New", std::nullopt},
    {"several modifiers", Gtk, ";;<Primary><Shift><Alt><Super>s", "", keys("csaw", XKB_KEY_s)},
    {"Control has three names in any case", Gtk, ";;<CONTROL>s", "", keys("c", XKB_KEY_s)},
    {"Java's name for it", Unknown, "m;;<Ctrl>N", "New", keys("c", XKB_KEY_N)},
    {"Firefox's path", Bridge, "s;<Alt>f:s;<Control>s", "Save", keys("c", XKB_KEY_s)},
    {"Alt by its number", Gtk, ";;<Mod1>F4", "", keys("a", XKB_KEY_F4)},
    {"Meta is the logo key", Bridge, ";;<Meta>q", "", keys("w", XKB_KEY_q)},
    {"for GTK itself it is on the Alt keys", Gtk, ";;<Meta>q", "", keys("a", XKB_KEY_q)},
    {"the logo key by its number", Gtk, ";;<Mod4>q", "", keys("w", XKB_KEY_q)},
    {"other modifiers cannot be told", Gtk, ";;<Hyper>s", "", std::nullopt},
    {"nor numbered ones", Gtk, ";;<Mod3>s", "", std::nullopt},
    {"a bracket that does not close", Gtk, ";;<Primary", "", std::nullopt},
    {"modifiers without a key", Gtk, ";;<Primary>", "", std::nullopt},
    {"a function key", Gtk, ";;F3", "Find Next", keys("", XKB_KEY_F3)},
    {"a key by its name", Gtk, ";;<Alt>Page_Down", "", keys("a", XKB_KEY_Page_Down)},
    {"a punctuation's name", Gtk, ";;<Primary>plus", "", keys("c", XKB_KEY_plus)},
    {"a character instead of its name", Unknown, ";;<Ctrl>+", "", keys("c", XKB_KEY_plus)},
    {"a semicolon by its name", Gtk, ";;<Primary>semicolon", "", keys("c", XKB_KEY_semicolon)},
    {"a name that nobody knows", Gtk, ";;<Primary>NoSuchKey", "", std::nullopt},
    {"a number that no keysym has", Gtk, ";;<Primary>0x4158ff2c", "", std::nullopt},
    {"a fake binding of menu buttons", Unknown, "<Space>", "Open", std::nullopt},

    {"portable text", QtToolkit, "Ctrl+Shift+S", "Save As...", keys("cs", XKB_KEY_S)},
    {"the logo key", QtToolkit, "Meta+E", "Explore", keys("w", XKB_KEY_E)},
    {"a plus", QtToolkit, "Ctrl++", "Zoom In", keys("c", XKB_KEY_plus)},
    {"a semicolon is no separator", QtToolkit, "Ctrl+;", "Comment", keys("c", XKB_KEY_semicolon)},
    {"a comma is no second key", QtToolkit, "Ctrl+,", "Preferences", keys("c", XKB_KEY_comma)},
    {"two keys one after the other are none", QtToolkit, "Ctrl+K, Ctrl+S", "Save All", std::nullopt},
    {"a mnemonic of Alt and a letter of the name", QtToolkit, "Alt+N", "New", std::nullopt},
    {"in whichever case", QtToolkit, "Alt+N", "open", std::nullopt},
    {"a letter that the name does not have", QtToolkit, "Alt+X", "Open", keys("a", XKB_KEY_X)},
    {"Alt and an arrow", QtToolkit, "Alt+Left", "Back", keys("a", XKB_KEY_Left)},
    {"Alt and Shift", QtToolkit, "Alt+Shift+N", "New", keys("as", XKB_KEY_N)},
    {"a function key of Qt", QtToolkit, "F3", "Find Next", keys("", XKB_KEY_F3)},
    {"Page Up", QtToolkit, "Ctrl+PgUp", "", keys("c", XKB_KEY_Page_Up)},
    {"Page Down", QtToolkit, "Ctrl+PgDown", "", keys("c", XKB_KEY_Page_Down)},
    {"Return", QtToolkit, "Ctrl+Return", "", keys("c", XKB_KEY_Return)},
    {"Backspace", QtToolkit, "Ctrl+Backspace", "", keys("c", XKB_KEY_BackSpace)},
    {"Escape", QtToolkit, "Ctrl+Esc", "", keys("c", XKB_KEY_Escape)},
    {"Home", QtToolkit, "Ctrl+Home", "", keys("c", XKB_KEY_Home)},
    {"End", QtToolkit, "Ctrl+End", "", keys("c", XKB_KEY_End)},
    {"Right", QtToolkit, "Ctrl+Right", "", keys("c", XKB_KEY_Right)},
    {"Up", QtToolkit, "Ctrl+Up", "", keys("c", XKB_KEY_Up)},
    {"Down", QtToolkit, "Ctrl+Down", "", keys("c", XKB_KEY_Down)},
    {"Eject", QtToolkit, "Ctrl+Eject", "", keys("c", XKB_KEY_XF86Eject)},
    {"the space bar", QtToolkit, "Ctrl+Space", "", keys("c", XKB_KEY_space)},
    {"a letter beyond ASCII", QtToolkit, "Ctrl+\xC3\x84", "", keys("c", XKB_KEY_Adiaeresis)},
    {"a key that types what nobody sees", QtToolkit, "Ctrl+Del", "", std::nullopt},
    {"a key that no menu can show", QtToolkit, "Ctrl+Tab", "", std::nullopt},
    {"no text of Qt's at all", QtToolkit, "Strg+N", "New", std::nullopt},
    {"without a known toolkit too", Unknown, "Ctrl+N", "New", keys("c", XKB_KEY_n)},
};

} // namespace

TEST(AtspiKeyBinding, keyBindingOf_understandsEachToolkit)
{
    for (const Row& row : rows) {
        const auto binding =
            keyBindingOf(QString::fromUtf8(row.text), QString::fromUtf8(row.name), row.toolkit);
        const auto lowered = [](std::optional<KeyBinding> keyed) {
            if (keyed)
                keyed->key = xkb_keysym_to_lower(keyed->key);
            return keyed;
        };
        EXPECT_EQ(binding.has_value(), row.binding.has_value()) << row.sentence;
        EXPECT_TRUE(lowered(binding) == lowered(row.binding)) << row.sentence;
    }
}
