// SPDX-License-Identifier: MIT
// Replies of accessibility objects as they come over the bus. A byte that says to what question, the
// signature, a zero byte, the body.
#include "platform/linux/atspi/AtspiConstants.h"
#include "platform/linux/atspi/AtspiQuestion.h"
#include "platform/linux/bus/BusText.h"
#include "tests/fuzz/Fuzzing.h"
#include "tests/fuzz/Wire.h"

using namespace tarnwick;

namespace {

constexpr int Questions = 10;
constexpr int Connection = 3;

AtspiFacts decoded(AtspiQuestion question, sd_bus_message* reply)
{
    AtspiFacts facts;
    facts.reference = {":1.5", "/item", Connection};
    formOf(question).store(reply, facts);
    return facts;
}

bool areSame(const AtspiFacts& left, const AtspiFacts& right)
{
    return left.reference == right.reference && left.name == right.name && left.role == right.role &&
           left.states == right.states && left.keyBinding == right.keyBinding &&
           left.hasArea == right.hasArea && left.toolkit == right.toolkit &&
           left.childCount == right.childCount && left.firstChild == right.firstChild &&
           left.children == right.children && left.processIdentifier == right.processIdentifier;
}

int answered(const AtspiFacts& facts)
{
    return int(facts.name.has_value()) + int(facts.role.has_value()) + int(facts.states.has_value()) +
           int(facts.keyBinding.has_value()) + int(facts.hasArea.has_value()) +
           int(facts.toolkit.has_value()) + int(facts.childCount.has_value()) +
           int(facts.firstChild.has_value()) + int(facts.children.has_value()) +
           int(facts.processIdentifier.has_value());
}

void checkText(const std::optional<QString>& text)
{
    if (!text)
        return;
    require(text->isValidUtf16() && !text->contains(QChar(u'\0')), "a text is a text");
    require(text->toUtf8().size() <= MaximumTextBytes, "a text is no longer than the longest");
}

void checkReference(const BusReference& reference)
{
    require(reference.connection == Connection, "a reference is of the connection that it came from");
    require(reference.path.startsWith('/') && reference.path != atspi::NullPath &&
                !reference.service.isEmpty(),
            "a reference is one to an object");
}

void check(const AtspiFacts& facts)
{
    checkText(facts.name);
    checkText(facts.keyBinding);
    checkText(facts.toolkit);
    require(!facts.processIdentifier ||
                (*facts.processIdentifier >= 0 && *facts.processIdentifier <= 0xFFFFFFFF),
            "a process identifier is one");
    if (facts.firstChild && *facts.firstChild)
        checkReference(*facts.firstChild);
    for (const BusReference& child : facts.children.value_or(QList<BusReference>()))
        checkReference(child);
}

/// The same text over and over, until it is too long.
void checkCut(const QByteArray& text)
{
    const QByteArray whole = text.repeated(MaximumTextBytes / text.size() + 2);
    const QString cut = cutText(whole.constData());
    require(whole.startsWith(cut.toUtf8()), "a text that is cut is the beginning of the whole");
    require(cut.toUtf8().size() <= MaximumTextBytes && cut.toUtf8().size() > MaximumTextBytes - 4,
            "a text is cut at the last character that fits");
}

void checkReply(int first, sd_bus_message* reply)
{
    constexpr int CutText = 0xFF;
    const auto question = static_cast<AtspiQuestion>(first % Questions);
    const AtspiFacts facts = decoded(question, reply);
    const bool one = answered(facts) == 1;
    require(one || areSame(facts, AtspiFacts{.reference = facts.reference}), "one answer, or none");
    check(facts);
    require(sd_bus_message_rewind(reply, 1) >= 0, "a message can be read again");
    require(areSame(decoded(question, reply), facts), "a reply that is read again says the same");
    if (first == CutText && facts.toolkit.value_or(QString()).size() > 0)
        checkCut(facts.toolkit->toUtf8());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    const int first = input.byte();
    return Wire::shared().feed(input, [first](sd_bus_message* reply) { checkReply(first, reply); });
}
