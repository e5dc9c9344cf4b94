// SPDX-License-Identifier: MIT
#include "platform/linux/keys/XkbComposition.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>

using namespace Qt::StringLiterals;

namespace tarnwick {
namespace {

/// Sets an environment variable for as long as it is there.
class Variable
{
public:
    Variable(const char* name, const QByteArray& value) : _name(name), _before(qgetenv(name))
    {
        qputenv(name, value);
    }
    ~Variable()
    {
        if (_before.isNull())
            qunsetenv(_name);
        else
            qputenv(_name, _before);
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* _name;
    QByteArray _before;
};

class XkbCompositionTest : public ::testing::Test
{
protected:
    XkbCompositionTest()
    {
        QFile sequences(directory.filePath(u"sequences"_s));
        EXPECT_TRUE(sequences.open(QIODevice::WriteOnly));
        sequences.write("<dead_acute> <e> : \"\xc3\xa9\"\n"
                        "<dead_acute> <dead_acute> : \"'\"\n"
                        "<Multi_key> <s> <s> : \"\xc3\x9f\"\n"
                        "<q> <q> : \"two\"\n");
    }

    using Answer = std::optional<QString>;
    static constexpr std::nullopt_t ByItself = std::nullopt;
    const Answer more = QString();

    QTemporaryDir directory;
    Variable file{"XCOMPOSEFILE", directory.filePath(u"sequences"_s).toUtf8()};
    XkbComposition composition{"en_US.UTF-8"};
};

TEST_F(XkbCompositionTest, aDeadKey_goesIntoTheLetterAfterIt)
{
    EXPECT_EQ(composition.press(XKB_KEY_e), ByItself);
    EXPECT_EQ(composition.press(XKB_KEY_dead_acute), more);
    EXPECT_EQ(composition.press(XKB_KEY_e), Answer(u"é"_s));
    EXPECT_EQ(composition.press(XKB_KEY_e), ByItself);
}

TEST_F(XkbCompositionTest, twice_itTypesItself)
{
    EXPECT_EQ(composition.press(XKB_KEY_dead_acute), more);
    EXPECT_EQ(composition.press(XKB_KEY_dead_acute), Answer(u"'"_s));
}

TEST_F(XkbCompositionTest, compose_takesSeveralKeys_andModifiersBetweenThemDoNotCount)
{
    EXPECT_EQ(composition.press(XKB_KEY_Multi_key), more);
    EXPECT_EQ(composition.press(XKB_KEY_s), more);
    EXPECT_EQ(composition.press(XKB_KEY_Shift_L), ByItself);
    EXPECT_EQ(composition.press(XKB_KEY_s), Answer(u"ß"_s));
}

TEST_F(XkbCompositionTest, aKeyThatGoesOnWithNothing_typesItself_andTheSequenceIsOver)
{
    EXPECT_EQ(composition.press(XKB_KEY_dead_acute), more);
    EXPECT_EQ(composition.press(XKB_KEY_x), ByItself);
    EXPECT_EQ(composition.press(XKB_KEY_e), ByItself);
}

TEST_F(XkbCompositionTest, beforeADeadKey_noSequenceIsKnown)
{
    EXPECT_EQ(composition.press(XKB_KEY_q), ByItself);
    EXPECT_EQ(composition.press(XKB_KEY_q), ByItself);
}

TEST_F(XkbCompositionTest, withoutSequences_everyKeyTypesItself)
{
    const Variable none("XCOMPOSEFILE", directory.filePath(u"none"_s).toUtf8());
    const Variable nowhere("XLOCALEDIR", directory.path().toUtf8());
    const Variable noHome("HOME", directory.path().toUtf8());
    XkbComposition empty("xx_XX");
    EXPECT_EQ(empty.press(XKB_KEY_dead_acute), ByItself);
    EXPECT_EQ(empty.press(XKB_KEY_e), ByItself);
}

TEST(LocaleOfTyping, isTheFirstThatSaysSomething)
{
    const Variable language("LANG", "de_DE.UTF-8");
    const Variable typing("LC_CTYPE", "fr_FR.UTF-8");
    {
        const Variable all("LC_ALL", "cs_CZ.UTF-8");
        EXPECT_EQ(localeOfTyping(), "cs_CZ.UTF-8");
    }
    const Variable all("LC_ALL", "");
    EXPECT_EQ(localeOfTyping(), "fr_FR.UTF-8");
    const Variable nothing("LC_CTYPE", "");
    EXPECT_EQ(localeOfTyping(), "de_DE.UTF-8");
    const Variable noLanguage("LANG", "");
    EXPECT_EQ(localeOfTyping(), "C");
}

} // namespace
} // namespace tarnwick
