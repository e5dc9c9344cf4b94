// SPDX-License-Identifier: MIT
#include "foundation/CNumbers.h"
#include "foundation/CScanner.h"
#include "foundation/FormatText.h"
#include "tests/unit/foundation/CommaLocale.h"

#include <QString>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <string_view>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

struct Printed
{
    double value;
    QString text;
};

const Printed printed[] = {
    {0, u"0"_s},
    {-0.0, u"-0"_s},
    {1, u"1"_s},
    {12.5, u"12.5"_s},
    {-12.5, u"-12.5"_s},
    {100000, u"100000"_s},
    {1000000, u"1e+06"_s},
    {1234567, u"1.23457e+06"_s},
    {123456.5, u"123456"_s},
    {0.0001, u"0.0001"_s},
    {0.00001, u"1e-05"_s},
    {1.0 / 3, u"0.333333"_s},
    {1e300, u"1e+300"_s},
    {infinity, u"inf"_s},
    {-infinity, u"-inf"_s},
};

// Bit for bit, with every NaN alike.
std::string shown(float value)
{
    char text[64] = {};
    std::snprintf(text, sizeof text, "%a", static_cast<double>(value));
    return std::isnan(value) ? "nan" : text;
}

} // namespace

TEST(NumberTexts, formatG_printsAsPercentG)
{
    for (const auto& [value, text] : printed)
        EXPECT_EQ(formatG(value), text);
    EXPECT_EQ(formatG(std::numeric_limits<double>::quiet_NaN()), u"nan"_s);
    EXPECT_EQ(formatG(0.1, 16), u"0.1"_s);
}

TEST(NumberTexts, scanner_readsWhatSscanfReads)
{
    const char* const texts[] = {
        "x=1 y=2",
        "x=1.5 y=-2.25",
        "x=1y=2",
        "x= 1   y= 2",
        "x=\t1\n\v\f\r y=2",
        "x=1\ny=2",
        "x =1 y=2",
        " x=1 y=2",
        "X=1 y=2",
        "x=1, y=2",
        "x=1,5 y=2",
        "x=1 z=2",
        "x=1 y",
        "x=1 y=",
        "x=",
        "x",
        "",
        "   ",
        "12.5",
        "x=.5 y=5.",
        "x=. y=2",
        "x=-.y=2",
        "x=+1 y=+.5e1",
        "x=- y=2",
        "x=--1 y=2",
        "x=1.2.3 y=2",
        "x=1e3 y=2E-2",
        "x=1e y=2",
        "x=1e+ y=2",
        "x=1e-y=3",
        "x=1e5e5 y=2",
        "x=0e y=4",
        "x=1e40 y=-1e40",
        "x=1e400 y=-1e400",
        "x=1e-50 y=-1e-50",
        "x=1e-400 y=2",
        "x=1e-42 y=1e99999999999999999999",
        "x=0e99999999999999999999 y=1",
        "x=0.000000000000000000000000000000000000000000000000000000001e60 y=1",
        "x=16777217 y=0.1",
        "x=3.4028235e38 y=3.4028236e38",
        "x=00012 y=08",
        "x=0x10 y=0XfF",
        "x=0x1p3 y=0x1.8",
        "x=0X1P+4 y=0x.8p1",
        "x=0x1p y=2",
        "x=0x1p3.5 y=2",
        "x=0x y=2",
        "x=0xg y=2",
        "x=0x.p1 y=4",
        "x=00x5 y=2",
        "x=0x1p500 y=0x1p-500",
        "x=-0x1p500 y=0x0p999999",
        "x=inf y=-inf",
        "x=INFINITY y=+Infinity",
        "x=infi y=2",
        "x=INFx y=2",
        "x=in y=2",
        "x=nan y=NaN",
        "x=nanx y=2",
        "x=na y=2",
        "x=-nan y=2",
        "x=1\u00a0y=2",
    };
    for (const char* text : texts) {
        float x = 0;
        float y = 0;
        std::sscanf(text, "x=%g y=%g", &x,
                    &y); // NOLINT(bugprone-unused-return-value): the rule ignores it too
        CScanner scanner{QByteArrayView(text)};
        EXPECT_EQ(shown(scanner.literal("x=").g()), shown(x)) << text;
        EXPECT_EQ(shown(scanner.literal(" y=").g()), shown(y)) << text;
    }
}

TEST(NumberTexts, scanner_readsWhatSscanfReads_alsoFromNoise)
{
    std::minstd_rand random(1);
    const std::string_view bytes = "0011223459..eExXpP+-nNaAiIfFtTyY  \t,";
    for (int round = 0; round < 20000; ++round) {
        std::string text = "x=";
        for (auto length = random() % 12; length > 0; --length)
            text += bytes[random() % bytes.size()];
        text += " y=7";
        float x = 0;
        float y = 0;
        std::sscanf(text.c_str(), "x=%g y=%g", &x, &y); // NOLINT(bugprone-unused-return-value)
        CScanner scanner{QByteArrayView(text)};
        ASSERT_EQ(shown(scanner.literal("x=").g()), shown(x)) << text;
        ASSERT_EQ(shown(scanner.literal(" y=").g()), shown(y)) << text;
    }
}

TEST(NumberTexts, scanner_readsIntegersWithin64Bits)
{
    const char* const texts[] = {
        "pos=1 len=2",
        "pos=-1 len=+2",
        "pos= 7 len=\t8",
        "pos=1.5 len=2",
        "pos=0x5 len=2",
        "pos=- len=2",
        "pos=+5len=6",
        "pos=9223372036854775807 len=-9223372036854775808",
        "pos=9223372036854775808 len=-9223372036854775809",
        "pos=99999999999999999999 len=-99999999999999999999",
        "pos=1 length=2",
        "len=1 pos=2",
        "",
    };
    for (const char* text : texts) {
        long position = 0;
        long length = 0;
        std::sscanf(text, "pos=%ld len=%ld", &position, &length); // NOLINT(bugprone-unused-return-value)
        CScanner scanner{QByteArrayView(text)};
        EXPECT_EQ(scanner.literal("pos=").ld(), position) << text;
        EXPECT_EQ(scanner.literal(" len=").ld(), length) << text;
    }
}

TEST(NumberTexts, scanner_afterAMismatch_readsZeroForGood)
{
    CScanner scanner{QByteArrayView("a=1 b=2")};
    EXPECT_EQ(scanner.literal("x=").g(), 0.0F);
    EXPECT_EQ(scanner.literal("a=").g(), 0.0F) << "what stands there now comes too late";
    EXPECT_EQ(scanner.ld(), 0);
}

TEST(NumberTexts, floatValue_readsADecimalNumberOrZero)
{
    const struct
    {
        QString text;
        float value;
    } rows[] = {
        {u"12.5"_s, 12.5F},
        {u"  -12.5 apples"_s, -12.5F},
        {u"+3"_s, 3},
        {u".5"_s, 0.5F},
        {u"1,5"_s, 1},
        {u"1e3"_s, 1000},
        {u"1e"_s, 1},
        {u"0.1"_s, 0.1F},
        {u"0x10"_s, 0},
        {u"1e40"_s, std::numeric_limits<float>::infinity()},
        {u"-1e40"_s, -std::numeric_limits<float>::infinity()},
        {u"1e-60"_s, 0},
        {u"inf"_s, 0},
        {u"nan"_s, 0},
        {u"apples"_s, 0},
        {u"--1"_s, 0},
        {u"-"_s, 0},
        {u""_s, 0},
        {u"१"_s, 0},
    };
    for (const auto& [text, value] : rows)
        EXPECT_EQ(floatValue(text), value) << text.toStdString();
}

TEST(NumberTexts, underADecimalComma_stayTheSame)
{
    const CommaLocale german;
    if (!german.inEffect()) {
        ASSERT_FALSE(CommaLocale::required()) << CommaLocale::whyMissing;
        GTEST_SKIP() << CommaLocale::whyMissing;
    }
    for (const auto& [value, text] : printed)
        EXPECT_EQ(formatG(value), text);
    EXPECT_EQ(floatValue(u"12.5"), 12.5F);
    EXPECT_EQ(floatValue(u"12,5"), 12.0F);
    CScanner scanner{QByteArrayView("x=1.5 y=1,5")};
    EXPECT_EQ(scanner.literal("x=").g(), 1.5F);
    EXPECT_EQ(scanner.literal(" y=").g(), 1.0F);
}

TEST(FormatText, expandPercentSigns_turnsOnlyDoubledOnesIntoOne)
{
    const struct
    {
        QString format;
        QString text;
    } rows[] = {
        {u""_s, u""_s},
        {u"plain"_s, u"plain"_s},
        {u"%%"_s, u"%"_s},
        {u"100%% of %%@"_s, u"100% of %@"_s},
        {u"%@ %d %C %5.2f"_s, u"%@ %d %C %5.2f"_s},
        {u"%"_s, u"%"_s},
        {u"%%%"_s, u"%%"_s},
        {u"%%%%"_s, u"%%"_s},
        {u"%1 %2"_s, u"%1 %2"_s},
    };
    for (const auto& [format, text] : rows)
        EXPECT_EQ(expandPercentSigns(format), text) << format.toStdString();
}
