// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/AtspiDecode.h"

#include "platform/linux/atspi/AtspiQuestion.h"
#include "platform/linux/bus/BusText.h"
#include "tests/unit/linux/bus/MessageTest.h"

using namespace tarnwick;
using namespace tarnwick::atspi;
using namespace Qt::StringLiterals;

namespace {

class AtspiDecode : public MessageTest
{
protected:
    SdBusMessage references(int count)
    {
        SdBusMessage message = empty();
        sd_bus_message_open_container(message.get(), SD_BUS_TYPE_ARRAY, "(so)");
        for (int i = 0; i < count; ++i)
            sd_bus_message_append(message.get(), "(so)", ":1.5", "/a");
        sd_bus_message_close_container(message.get());
        return sealed(std::move(message));
    }
};

} // namespace

TEST_F(AtspiDecode, texts_areReadAsTheyAre)
{
    EXPECT_EQ(decodeText(reply("s", "N\xC3\xA4"
                                    "chste")
                             .get()),
              u"N\u00E4chste"_s);
    EXPECT_EQ(decodeText(reply("s", "").get()), QString());
    EXPECT_EQ(decodeTextProperty(reply("v", "s", "File").get()), u"File"_s);
}

TEST_F(AtspiDecode, longTexts_areCutAtAWholeCharacter)
{
    const QByteArray fits(MaximumTextBytes, 'a');
    EXPECT_EQ(decodeText(reply("s", fits.constData()).get())->size(), MaximumTextBytes);
    const QByteArray longer = QByteArray(MaximumTextBytes - 1, 'a') + "\xC3\xA4"
                                                                      "bc";
    EXPECT_EQ(decodeText(reply("s", longer.constData()).get())->size(), MaximumTextBytes - 1);
    EXPECT_EQ(decodeTextProperty(reply("v", "s", longer.constData()).get())->size(), MaximumTextBytes - 1);
}

TEST_F(AtspiDecode, anotherType_givesNothing)
{
    EXPECT_FALSE(decodeText(reply("u", 7U).get()));
    EXPECT_FALSE(decodeText(reply("").get()));
    EXPECT_FALSE(decodeText(reply("v", "s", "File").get()));
    EXPECT_FALSE(decodeTextProperty(reply("s", "File").get()));
    EXPECT_FALSE(decodeTextProperty(reply("v", "u", 7U).get()));
    EXPECT_FALSE(decodeTextProperty(reply("v", "as", 1, "File").get()));
    EXPECT_FALSE(decodeNumberProperty(reply("v", "u", 7U).get()));
    EXPECT_FALSE(decodeFlagProperty(reply("v", "i", 1).get()));
    EXPECT_FALSE(decodeUnsigned(reply("i", 7).get()));
    EXPECT_FALSE(decodeUnsigned(reply("s", "seven").get()));
    EXPECT_FALSE(decodeArea(reply("(iii)", 0, 0, 10).get()));
    EXPECT_FALSE(decodeArea(reply("iiii", 0, 0, 10, 10).get()));
    EXPECT_FALSE(decodeStates(reply("u", 7U).get()));
    EXPECT_FALSE(decodeStates(reply("ai", 2, 1, 0).get()));
    EXPECT_FALSE(decodeReference(reply("s", ":1.5").get(), 1));
    EXPECT_FALSE(decodeReference(reply("so", ":1.5", "/a").get(), 1));
    EXPECT_FALSE(decodeReferences(reply("(so)", ":1.5", "/a").get(), 1));
    EXPECT_FALSE(decodeReferences(reply("as", 1, ":1.5").get(), 1));
}

TEST_F(AtspiDecode, textThatIsNoUtf8_givesNothing)
{
    const SdBusMessage message = reply("s", "abc");
    const char* bytes = nullptr;
    ASSERT_GT(sd_bus_message_read_basic(message.get(), SD_BUS_TYPE_STRING, &bytes), 0);
    const_cast<char*>(bytes)[1] = '\xFF'; // as another program may send it
    sd_bus_message_rewind(message.get(), 1);
    EXPECT_FALSE(decodeText(message.get()));
}

TEST_F(AtspiDecode, aReplyThatIsCutOff_givesNothing)
{
    const SdBusMessage message = reply("s", "abc");
    const char* bytes = nullptr;
    ASSERT_GT(sd_bus_message_read_basic(message.get(), SD_BUS_TYPE_STRING, &bytes), 0);
    const_cast<char*>(bytes)[-4] = 100; // the length, which promises more than there is
    sd_bus_message_rewind(message.get(), 1);
    EXPECT_FALSE(decodeText(message.get()));
}

TEST_F(AtspiDecode, numbersAndFlags_areRead)
{
    EXPECT_EQ(decodeNumberProperty(reply("v", "i", -3).get()), -3);
    EXPECT_EQ(decodeFlagProperty(reply("v", "b", 1).get()), true);
    EXPECT_EQ(decodeFlagProperty(reply("v", "b", 0).get()), false);
    EXPECT_EQ(decodeUnsigned(reply("u", 35U).get()), 35U);
}

TEST_F(AtspiDecode, anArea_hasWidthAndHeight)
{
    EXPECT_EQ(decodeArea(reply("(iiii)", -5, 0, 120, 24).get()), true);
    EXPECT_EQ(decodeArea(reply("(iiii)", 0, 0, 0, 0).get()), false);
    EXPECT_EQ(decodeArea(reply("(iiii)", 0, 0, 120, 0).get()), false);
    EXPECT_EQ(decodeArea(reply("(iiii)", 0, 0, -1, 24).get()), false);
}

TEST_F(AtspiDecode, states_areTwoWordsTheLowerOneFirst)
{
    EXPECT_EQ(decodeStates(reply("au", 2, 0x10U, 0x200U).get()), 0x200'0000'0010U);
    EXPECT_EQ(decodeStates(reply("au", 1, 0x10U).get()), 0x10U);
    EXPECT_EQ(decodeStates(reply("au", 3, 0x10U, 0U, 9U).get()), 0x10U);
    EXPECT_FALSE(decodeStates(reply("au", 0).get()));
}

TEST_F(AtspiDecode, references_areOfTheConnectionTheyCameFrom)
{
    const auto one = decodeReference(reply("(so)", ":1.5", "/a/b").get(), 3);
    EXPECT_EQ(one, (BusReference{":1.5", "/a/b", 3}));
    const auto several = decodeReferences(reply("a(so)", 2, ":1.5", "/a", ":1.5", "/b").get(), 3);
    EXPECT_EQ(several, (QList<BusReference>{{":1.5", "/a", 3}, {":1.5", "/b", 3}}));
}

TEST_F(AtspiDecode, theNullObject_isAnEmptyReference)
{
    EXPECT_EQ(decodeReference(reply("(so)", ":1.5", "/org/a11y/atspi/null").get(), 1), BusReference());
    EXPECT_EQ(decodeReference(reply("(so)", "", "/a").get(), 1), BusReference());
    EXPECT_EQ(decodeReferences(reply("a(so)", 2, "", "/org/a11y/atspi/null", ":1.5", "/b").get(), 1)->size(),
              1);
    EXPECT_EQ(decodeReferences(reply("a(so)", 0).get(), 1)->size(), 0);
}

TEST_F(AtspiDecode, tooManyChildren_areCut)
{
    EXPECT_EQ(decodeReferences(references(20'000).get(), 1)->size(), 20'000);
    EXPECT_EQ(decodeReferences(references(20'001).get(), 1)->size(), 20'000);
}

TEST_F(AtspiDecode, anAnswer_goesToItsField)
{
    AtspiFacts facts;
    facts.reference = {":1.5", "/a", 4};
    const auto decodeAnswer = [](AtspiQuestion question, const SdBusMessage& reply, AtspiFacts& into) {
        formOf(question).store(reply.get(), into);
    };
    decodeAnswer(AtspiQuestion::Name, reply("v", "s", "New"), facts);
    decodeAnswer(AtspiQuestion::Role, reply("u", 35U), facts);
    decodeAnswer(AtspiQuestion::States, reply("au", 2, 1U, 0U), facts);
    decodeAnswer(AtspiQuestion::KeyBinding, reply("s", "Ctrl+N"), facts);
    decodeAnswer(AtspiQuestion::Area, reply("(iiii)", 0, 0, 0, 0), facts);
    decodeAnswer(AtspiQuestion::Toolkit, reply("v", "s", "Qt"), facts);
    decodeAnswer(AtspiQuestion::ChildCount, reply("v", "i", 2), facts);
    decodeAnswer(AtspiQuestion::FirstChild, reply("(so)", ":1.5", "/b"), facts);
    decodeAnswer(AtspiQuestion::Children, reply("a(so)", 1, ":1.5", "/b"), facts);
    decodeAnswer(AtspiQuestion::ProcessIdentifier, reply("u", 42U), facts);
    EXPECT_EQ(facts.name, u"New"_s);
    EXPECT_EQ(facts.role, 35U);
    EXPECT_EQ(facts.states, 1U);
    EXPECT_EQ(facts.keyBinding, u"Ctrl+N"_s);
    EXPECT_EQ(facts.hasArea, false);
    EXPECT_EQ(facts.toolkit, u"Qt"_s);
    EXPECT_EQ(facts.childCount, 2);
    EXPECT_EQ(facts.firstChild, (BusReference{":1.5", "/b", 4}));
    EXPECT_EQ(facts.children, (QList<BusReference>{{":1.5", "/b", 4}}));
    EXPECT_EQ(facts.processIdentifier, 42);
}
