// SPDX-License-Identifier: MIT
#include "platform/qt/settings/KeyFile.h"

#include <QStringList>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace tarnwick {
namespace {

/// "group|key|value" of each entry, "none" for no group.
QStringList read(const QByteArray& contents)
{
    QStringList texts;
    for (const auto& [group, key, value] : key_file::entriesOf(contents))
        texts.append(QStringList{group ? key_file::textOf(*group) : u"none"_s, key_file::textOf(key),
                                 key_file::textOf(value)}
                         .join(u'|'));
    return texts;
}

struct Row
{
    const char* sentence;
    QByteArray contents;
    QStringList entries;
};

const Row Rows[] = {
    {"an entry belongs to the group above it", "[A]\na=1\n[B]\nb=2\n", {u"A|a|1"_s, u"B|b|2"_s}},
    {"before the first group there is none", "a=1\n", {u"none|a|1"_s}},
    {"a group may have no name", "[]\na=1\n", {u"|a|1"_s}},
    {"an entry may come twice", "a=1\na=2\n", {u"none|a|1"_s, u"none|a|2"_s}},
    {"the last line needs no end", "[A]\na=1", {u"A|a|1"_s}},
    {"blanks around the parts do not count", " [A] \r\n\ta = 1 2 \r\n", {u"A|a|1 2"_s}},
    {"other white space does", "a=\v1\f\n", {u"none|a|\v1\f"_s}},
    {"a value may be empty", "a=\n", {u"none|a|"_s}},
    {"a key may not", "=1\n = 1\n", {}},
    {"a value may have more of them", "a=b=c\n", {u"none|a|b=c"_s}},
    {"comments are none", "#a=1\n;b=2\n # c=3\n", {}},
    {"nor what has no sign of equality", "a\n\n", {}},
    {"a group in a group has both names", "[A][B]\na=1\n", {u"A][B|a|1"_s}},
    {"a bracket that does not close begins a group that is not that one", "[B]\n[A\na=1\n", {u"[A|a|1"_s}},
    {"a file may begin with a byte-order mark", "\xEF\xBB\xBF[A]\na=1\n", {u"A|a|1"_s}},
    {"elsewhere it is a character",
     "a=\xEF\xBB\xBF"
     "1\n",
     {u"none|a|\uFEFF1"_s}},
    {"nothing is in nothing", "", {}},
};

TEST(KeyFile, holdsEntriesInGroups)
{
    for (const Row& row : Rows)
        EXPECT_EQ(read(row.contents), row.entries) << row.sentence;
}

TEST(KeyFile, valuesAreWhatStoodBeforeTheyWereWritten)
{
    EXPECT_EQ(key_file::unescaped(uR"(\sa\sb\tc\nd\re\\sf)"_s), u" a b\tc\nd\re\\sf"_s);
    EXPECT_EQ(key_file::unescaped(uR"(a\;b\xc\)"_s), uR"(a\;b\xc\)"_s) << "what means nothing is meant";
    EXPECT_EQ(key_file::unescaped(uR"(a\;b\,c)"_s, u';'), uR"(a;b\,c)"_s) << "in a list separated by that";
}

} // namespace
} // namespace tarnwick
