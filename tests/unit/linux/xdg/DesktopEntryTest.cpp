// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/DesktopEntry.h"

#include <QStringList>
#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

QStringList commandOf(const QByteArray& exec)
{
    const auto entry = DesktopEntry::parse("[Desktop Entry]\nExec=" + exec + "\n");
    return entry ? entry->command() : QStringList();
}

struct ExecRow
{
    const char* sentence;
    QByteArray exec;
    QStringList command;
};

TEST(DesktopEntry, exec_isSplitAndUnquotedAsTheRulesSay)
{
    const ExecRow rows[] = {
        {"a program alone", "tarnwick", {u"tarnwick"_s}},
        {"an absolute path with arguments", "/usr/bin/x --a -b", {u"/usr/bin/x"_s, u"--a"_s, u"-b"_s}},
        {"blanks between words count once", "x   a\t b", {u"x"_s, u"a"_s, u"b"_s}},
        {"quotes keep blanks", R"("/opt/my apps/x" "a b")", {u"/opt/my apps/x"_s, u"a b"_s}},
        {"an empty word in quotes", R"(x "")", {u"x"_s, u""_s}},
        {"quoted specials are escaped twice", R"("/a\\\\b\\"c\\$d\\`e")", {u"/a\\b\"c$d`e"_s}},
        {"field codes are left out", "x %U --icon %i a", {u"x"_s, u"--icon"_s, u"a"_s}},
        {"what is no field code is left out whole", "x a%\xf0\x9f\x98\x80z", {u"x"_s, u"az"_s}},
        {"two percent signs are one", "x 100%%", {u"x"_s, u"100%"_s}},
        {"an open quote is no command", R"("x)", {}},
        {"nothing is no command", "", {}},
        {"an unknown escape stays", R"(x\q)", {u"x\\q"_s}},
        {"a value's escapes come first", R"(x\sa)", {u"x"_s, u"a"_s}},
    };
    for (const ExecRow& row : rows) {
        SCOPED_TRACE(row.sentence);
        EXPECT_EQ(commandOf(row.exec), row.command);
    }
}

TEST(DesktopEntry, execValue_isReadBackAsItWas)
{
    const QStringList words[] = {
        {u"/usr/bin/tarnwick"_s}, {u"/opt/my apps/tarnwick"_s},     {u"/a\\b\"c$d`e'f"_s, u"100%"_s, u"%U"_s},
        {u"/über/ж/tarnwick"_s},  {u"/a;b&c(d)|e<f>~*?#"_s, u""_s}, {u"/with\na line"_s},
        {u"/opt/wide\u2003"_s},   {u"\u00a0"_s, u"\f"_s},
    };
    for (const QStringList& command : words) {
        const QString value = DesktopEntry::execValue(command);
        EXPECT_EQ(commandOf(value.toUtf8()), command) << value.toStdString();
    }
    EXPECT_EQ(DesktopEntry::execValue({u"/usr/bin/tarnwick"_s}), u"/usr/bin/tarnwick"_s);
    EXPECT_EQ(DesktopEntry::execValue({u"/my apps/$x"_s}), u"\"/my apps/\\\\$x\""_s);
}

TEST(DesktopEntry, stringValue_isReadBackAsItWas)
{
    for (const QString& text :
         {u" a "_s, u"\ta\r\n"_s, u"\u2003wide\u00a0"_s, u"\v\f"_s, u"a\\sb;"_s, u" "_s}) {
        const auto entry = DesktopEntry::parse(
            "[Desktop Entry]\nName = " + DesktopEntry::stringValue(text).toUtf8() + " \r\n");
        ASSERT_TRUE(entry);
        EXPECT_EQ(entry->string(u"Name"_s), text);
    }
}

TEST(DesktopEntry, values_areThoseOfTheMainGroup)
{
    const auto entry =
        DesktopEntry::parse("# a comment\n[Other]\nName=other\n[Desktop Entry]\n"
                            " Name = Caf\xc3\xa9 \nName[de]=Kaffee\nHidden=true\nNoDisplay=maybe\n"
                            "OnlyShowIn=GNOME;X-A\\;B;\nName=again\n[Desktop Action x]\nName=action\n");
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->string(u"Name"_s), u"Café"_s) << "the first counts";
    EXPECT_EQ(entry->string(u"Name[de]"_s), u"Kaffee"_s);
    EXPECT_EQ(entry->string(u"Absent"_s), u""_s);
    EXPECT_TRUE(entry->boolean(u"Hidden"_s, false));
    EXPECT_TRUE(entry->boolean(u"NoDisplay"_s, true)) << "neither word: the default";
    EXPECT_FALSE(entry->boolean(u"NoDisplay"_s, false));
    EXPECT_EQ(entry->strings(u"OnlyShowIn"_s), (QStringList{u"GNOME"_s, u"X-A;B"_s}));
}

TEST(DesktopEntry, withoutAMainGroup_isNone)
{
    EXPECT_FALSE(DesktopEntry::parse("Name=x\n"));
    EXPECT_FALSE(DesktopEntry::parse(""));
    EXPECT_FALSE(DesktopEntry::parse(QByteArray(1000, '\xff')));
    EXPECT_FALSE(DesktopEntry::read(u"/nowhere/at/all.desktop"_s));
}

} // namespace
