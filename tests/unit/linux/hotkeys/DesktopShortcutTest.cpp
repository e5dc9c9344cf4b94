// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/DesktopShortcut.h"

#include "platform/linux/hotkeys/GSettingsText.h"
#include "platform/linux/hotkeys/KdeShortcuts.h"
#include "platform/linux/hotkeys/XfceShortcuts.h"
#include "tests/FairTimer.h"

#include <QKeySequence>
#include <gtest/gtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr quint32 Command = 0x100;
constexpr quint32 Shift = 0x200;
constexpr quint32 Option = 0x800;
constexpr quint32 Control = 0x1000;

struct TextRow
{
    QString text;
    std::optional<DesktopShortcut> shortcut;
};

DesktopShortcut keysym(quint32 symbol, quint32 modifiers = 0)
{
    return {symbol, 0, modifiers};
}

TEST(DesktopShortcut, accelerator_isModifiersInAngleBracketsAndAKey)
{
    const TextRow rows[] = {
        {u"<Primary><Alt>t"_s, keysym(XKB_KEY_t, Control | Option)},
        {u"<Control><Shift>T"_s, keysym(XKB_KEY_t, Control | Shift)},
        {u"<Ctrl><Ctl><Shft>F4"_s, keysym(XKB_KEY_F4, Control | Shift)},
        {u"<Super>Home"_s, keysym(XKB_KEY_Home, Command)},
        {u"<Mod4>space"_s, keysym(XKB_KEY_space, Command)},
        {u"<Mod1>F1"_s, keysym(XKB_KEY_F1, Option)},
        {u"<Meta>x"_s, keysym(XKB_KEY_x, Option)},
        {u"<super>e"_s, keysym(XKB_KEY_e, Command)},
        {u"<Release>Print"_s, keysym(XKB_KEY_Print)},
        {u"XF86AudioPlay"_s, keysym(XKB_KEY_XF86AudioPlay)},
        {u"Super_L"_s, keysym(XKB_KEY_Super_L)},
        {u"<Alt>plus"_s, keysym(XKB_KEY_plus, Option)},
        {u"<Alt>page_up"_s, keysym(XKB_KEY_Page_Up, Option)},
        {u"<Alt>Above_Tab"_s, DesktopShortcut{0, 49, Option}},
        {u"<Alt>0x1f"_s, DesktopShortcut{0, 31, Option}},
        {u"<Hyper>t"_s, std::nullopt},
        {u"<Mod3>t"_s, std::nullopt},
        {u"<Alt>"_s, std::nullopt},
        {u"<Alt"_s, std::nullopt},
        {u"<Alt>0xzz"_s, std::nullopt},
        {u"<Alt>0x0"_s, std::nullopt},
        {u"<Alt>0Xffffffff"_s, std::nullopt},
        {u"<Alt>t\0x"_s, std::nullopt},
        {u"disabled"_s, std::nullopt},
        {u"/org/gnome/custom0/"_s, std::nullopt},
        {u""_s, std::nullopt},
    };
    for (const TextRow& row : rows)
        EXPECT_EQ(DesktopShortcut::ofAccelerator(row.text), row.shortcut) << row.text.toStdString();
}

TEST(DesktopShortcut, portableText_isNamesJoinedWithPlus)
{
    const TextRow rows[] = {
        {u"Meta+Ctrl+Alt+Esc"_s, keysym(XKB_KEY_Escape, Command | Control | Option)},
        {u"Alt+F1"_s, keysym(XKB_KEY_F1, Option)},
        {u"Ctrl+Shift+T"_s, keysym(XKB_KEY_t, Control | Shift)},
        {u"Meta"_s, keysym(XKB_KEY_Super_L)},
        {u"Ctrl++"_s, keysym(XKB_KEY_plus, Control)},
        {u"Meta+,"_s, keysym(XKB_KEY_comma, Command)},
        {u"Meta+PgUp"_s, keysym(XKB_KEY_Page_Up, Command)},
        {u"Alt+Space"_s, keysym(XKB_KEY_space, Option)},
        {u"Alt+Shift+Backtab"_s, keysym(XKB_KEY_Tab, Option | Shift)},
        {u"Alt+Backtab"_s, keysym(XKB_KEY_Tab, Option | Shift)},
        {u"Volume Up"_s, keysym(XKB_KEY_XF86AudioRaiseVolume)},
        {u"Meta+Ж"_s, keysym(XKB_KEY_Cyrillic_zhe, Command)},
        {u"ctrl+del"_s, keysym(XKB_KEY_Delete, Control)},
        {u"Meta+Meta"_s, keysym(XKB_KEY_Super_L, Command)},
        {u"Num+Enter"_s, keysym(XKB_KEY_KP_Enter)},
        {u"+"_s, keysym(XKB_KEY_plus)},
        {u"F35"_s, keysym(XKB_KEY_F35)},
        {u"F36"_s, std::nullopt},
        {u"F0"_s, std::nullopt},
        {u"Ctrl+"_s, std::nullopt},
        {u"Ctrl+Shift"_s, std::nullopt},
        {u"Hyper+A"_s, std::nullopt},
        {u"Media Play"_s, std::nullopt},
        {u"Ctrl+K, Ctrl+S"_s, std::nullopt},
        {u"none"_s, std::nullopt},
        {u""_s, std::nullopt},
    };
    for (const TextRow& row : rows)
        EXPECT_EQ(DesktopShortcut::ofPortableText(row.text), row.shortcut) << row.text.toStdString();
}

/// What QKeySequence makes of a text of one key, which is what wrote it.
std::optional<QKeyCombination> readByQt(const QString& text)
{
    const QKeySequence sequence = QKeySequence::fromString(text, QKeySequence::PortableText);
    return sequence.count() == 1 && sequence[0].key() != Qt::Key_unknown ? std::optional(sequence[0])
                                                                         : std::nullopt;
}

TEST(DesktopShortcut, portableText_namesTheCharactersThatItNamesInQt)
{
    for (char32_t code = 0x21; code < 0x3000; ++code) {
        if (QChar::isSpace(code))
            continue;
        const QString text = u"Alt+"_s + QChar(static_cast<char16_t>(code));
        const auto inQt = readByQt(text);
        const auto keysym = xkb_keysym_to_lower(inQt ? xkb_utf32_to_keysym(static_cast<quint32>(inQt->key()))
                                                     : XKB_KEY_NoSymbol);
        const auto shortcut = DesktopShortcut::ofPortableText(text);
        ASSERT_EQ(shortcut ? shortcut->keysym : XKB_KEY_NoSymbol, keysym) << static_cast<uint>(code);
    }
}

TEST(DesktopShortcut, portableText_namesTheKeysThatItNamesInQt)
{
    int known = 0;
    for (int key = Qt::Key_Escape; key <= Qt::Key_VolumeUp; ++key) {
        const QString text = QKeySequence(key).toString(QKeySequence::PortableText);
        const bool named = readByQt(text) == QKeyCombination::fromCombined(key);
        const auto shortcut = DesktopShortcut::ofPortableText(text);
        EXPECT_TRUE(!shortcut || named) << key;
        known += shortcut ? 1 : 0;
    }
    EXPECT_EQ(known, 63) << "35 with numbers and 28 with names";
}

TEST(DesktopShortcut, portableText_knowsTheSecondNamesOfKeys)
{
    const QString names[] = {u"Escape"_s,       u"Insert"_s,         u"Delete"_s,     u"Page Up"_s,
                             u"Page Down"_s,    u"Caps Lock"_s,      u"Num Lock"_s,   u"Number Lock"_s,
                             u"Print Screen"_s, u"System Request"_s, u"Scroll Lock"_s};
    for (const QString& name : names) {
        const auto key = readByQt(name);
        ASSERT_TRUE(key) << name.toStdString();
        const auto shortcut = DesktopShortcut::ofPortableText(name);
        EXPECT_TRUE(shortcut) << name.toStdString();
        EXPECT_EQ(shortcut, DesktopShortcut::ofPortableText(QKeySequence(*key).toString()))
            << name.toStdString();
    }
}

struct StringsRow
{
    QString text;
    std::optional<QStringList> strings;
};

TEST(GSettingsText, strings_areSingleOrInABracketedList)
{
    const StringsRow rows[] = {
        {u"'<Alt>F4'"_s, QStringList{u"<Alt>F4"_s}},
        {u"\"it's\""_s, QStringList{u"it's"_s}},
        {u"['<Super>a', '<Alt>b']"_s, QStringList{u"<Super>a"_s, u"<Alt>b"_s}},
        {u"@as []"_s, QStringList{}},
        {u"[]"_s, QStringList{}},
        {u"''"_s, QStringList{u""_s}},
        {uR"('a\'b\\c\u00e9\nd')"_s, QStringList{u"a'b\\cé\nd"_s}},
        {uR"('\ufeffa\U0001f600')"_s, QStringList{u"\uFEFFa\U0001F600"_s}},
        {uR"('\ude12')"_s, QStringList{u"ude12"_s}}, // half of a character
        {u"true"_s, std::nullopt},
        {u"uint32 5"_s, std::nullopt},
        {u"[1, 2]"_s, std::nullopt},
        {u"['open"_s, std::nullopt},
        {u"['a', "_s, std::nullopt},
        {u"'a' 'b'"_s, std::nullopt},
        {u""_s, std::nullopt},
    };
    for (const StringsRow& row : rows)
        EXPECT_EQ(gsettings_text::parseStrings(row.text), row.strings) << row.text.toStdString();
}

TEST(GSettingsText, listing_hasOneSettingALine_textsOnly)
{
    const auto settings = gsettings_text::parseListing("org.x.wm close ['<Alt>F4']\norg.x.wm count 5\n"
                                                       "garbage\n\norg.x.wm menu 'disabled'\n");
    ASSERT_EQ(settings.size(), 2);
    EXPECT_EQ(settings.at(0).schema, u"org.x.wm"_s);
    EXPECT_EQ(settings.at(0).key, u"close"_s);
    EXPECT_EQ(settings.at(0).values, QStringList{u"<Alt>F4"_s});
    EXPECT_EQ(settings.at(1).key, u"menu"_s);
}

const QByteArray XfceSystem = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-keyboard-shortcuts" version="1.0">
  <property name="commands" type="empty">
    <property name="default" type="empty">
      <property name="&lt;Alt&gt;F1" type="string" value="menu"/>
      <property name="&lt;Primary&gt;Escape" type="string" value="xfdesktop --menu">
        <property name="startup-notify" type="bool" value="true"/>
      </property>
    </property>
  </property>
  <property name="xfwm4" type="empty">
    <property name="default" type="empty">
      <property name="&lt;Alt&gt;F4" type="string" value="close_window_key"/>
    </property>
  </property>
  <property name="providers" type="array"><value type="string" value="commands"/></property>
</channel>)";

const QByteArray XfceUser = R"(<channel name="xfce4-keyboard-shortcuts" version="1.0">
  <property name="commands" type="empty">
    <property name="default" type="empty"><property name="&lt;Alt&gt;F1" type="empty"/></property>
    <property name="custom" type="empty">
      <property name="&lt;Super&gt;t" type="string" value="terminal"/>
      <property name="&lt;Super&gt;x" type="empty"/>
      <property name="override" type="bool" value="true"/>
    </property>
  </property>
</channel>)";

TEST(XfceShortcuts, defaults_areUsedWhereTheUserHasNotReplacedThem)
{
    const auto system = XfceShortcuts::parse(XfceSystem);
    ASSERT_TRUE(system);
    EXPECT_EQ(system->shortcuts(),
              (QList<DesktopShortcut>{keysym(XKB_KEY_F1, Option), keysym(XKB_KEY_Escape, Control),
                                      keysym(XKB_KEY_F4, Option)}));
}

TEST(XfceShortcuts, usersShortcuts_replaceTheDefaultsOfTheirProvider)
{
    auto merged = XfceShortcuts::parse(XfceSystem);
    const auto user = XfceShortcuts::parse(XfceUser);
    ASSERT_TRUE(merged && user);
    merged->merge(*user);
    EXPECT_EQ(merged->shortcuts(),
              (QList<DesktopShortcut>{keysym(XKB_KEY_t, Command), keysym(XKB_KEY_F4, Option)}))
        << "and a cleared one is none";
}

TEST(XfceShortcuts, fileThatIsNotWellFormed_isNone)
{
    EXPECT_FALSE(XfceShortcuts::parse("<channel><property>"));
    EXPECT_FALSE(XfceShortcuts::parse(QByteArray(100, '\xff')));
    EXPECT_FALSE(XfceShortcuts::parse(""));
}

TEST(KdeShortcuts, activeOnes_areTheFirstItem_withTheirAlternatives)
{
    const auto shortcuts = parseKdeShortcuts("[$Version]\nupdate_info=x\n"
                                             "[kwin]\n"
                                             "_k_friendly_name=KWin\n"
                                             "Window Close=Alt+F4,Alt+F4,Close Window\n"
                                             "Expose=Ctrl+F9\\tMeta+W,Ctrl+F9,Present Windows\n"
                                             "Kill=none,Meta+Ctrl+Esc,Kill Window\n"
                                             "Comma=Meta+\\\\,,none,With a comma\n"
                                             "# Old=Alt+O,none,\n"
                                             "garbage\n"
                                             "[services][org.kde.krunner.desktop]\n"
                                             "_launch=Alt+Space\\tAlt+F2\\tSearch\n");
    EXPECT_EQ(shortcuts, (QList<DesktopShortcut>{keysym(XKB_KEY_F4, Option), keysym(XKB_KEY_F9, Control),
                                                 keysym(XKB_KEY_w, Command), keysym(XKB_KEY_comma, Command),
                                                 keysym(XKB_KEY_space, Option), keysym(XKB_KEY_F2, Option)}));
    EXPECT_TRUE(parseKdeShortcuts(QByteArray(1000, '\xff')).isEmpty());
    EXPECT_TRUE(parseKdeShortcuts("").isEmpty());
}

TEST(KdeShortcuts, unknownNames_takeNoTime)
{
    FairTimer taken;
    taken.start();
    EXPECT_TRUE(parseKdeShortcuts("[kwin]\nx=" + QByteArray("ab\\t").repeated(1 << 19)).isEmpty());
    EXPECT_LT(taken.fairElapsed(), 5000) << "2 MiB; compared with all that Qt knows they take 15 s at least";
}

} // namespace
