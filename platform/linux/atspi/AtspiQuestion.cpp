// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/AtspiQuestion.h"

#include "platform/linux/atspi/AtspiConstants.h"
#include "platform/linux/atspi/AtspiDecode.h"

#include <array>

namespace tarnwick {

using namespace atspi;

namespace {

template <auto Field, auto Decode>
void store(sd_bus_message* reply, AtspiFacts& facts)
{
    facts.*Field = Decode(reply);
}

/// References are of the connection that the object was asked on.
template <auto Field, auto Decode>
void storeReferences(sd_bus_message* reply, AtspiFacts& facts)
{
    facts.*Field = Decode(reply, facts.reference.connection);
}

using Kind = AtspiQuestionForm::Kind;

struct Row
{
    AtspiQuestion question;
    AtspiQuestionForm form;
};

/// In the order of the questions.
constexpr std::array<Row, 10> Rows{{
    {AtspiQuestion::Name,
     {Kind::Property, AccessibleInterface, "Name", store<&AtspiFacts::name, decodeTextProperty>}},
    {AtspiQuestion::Role,
     {Kind::Call, AccessibleInterface, "GetRole", store<&AtspiFacts::role, decodeUnsigned>}},
    {AtspiQuestion::States,
     {Kind::Call, AccessibleInterface, "GetState", store<&AtspiFacts::states, decodeStates>}},
    {AtspiQuestion::KeyBinding,
     {Kind::CallOfFirst, ActionInterface, "GetKeyBinding", store<&AtspiFacts::keyBinding, decodeText>}},
    {AtspiQuestion::Area,
     {Kind::CallOnTheScreen, ComponentInterface, "GetExtents", store<&AtspiFacts::hasArea, decodeArea>}},
    {AtspiQuestion::Toolkit,
     {Kind::Property, ApplicationInterface, "ToolkitName", store<&AtspiFacts::toolkit, decodeTextProperty>}},
    {AtspiQuestion::ChildCount,
     {Kind::Property, AccessibleInterface, "ChildCount",
      store<&AtspiFacts::childCount, decodeNumberProperty>}},
    {AtspiQuestion::FirstChild,
     {Kind::CallOfFirst, AccessibleInterface, "GetChildAtIndex",
      storeReferences<&AtspiFacts::firstChild, decodeReference>}},
    {AtspiQuestion::Children,
     {Kind::Call, AccessibleInterface, "GetChildren",
      storeReferences<&AtspiFacts::children, decodeReferences>}},
    {AtspiQuestion::ProcessIdentifier,
     {Kind::CallToTheBus, "org.freedesktop.DBus", "GetConnectionUnixProcessID",
      store<&AtspiFacts::processIdentifier, decodeUnsigned>}},
}};

constexpr bool isInOrder()
{
    for (std::size_t i = 0; i < Rows.size(); ++i)
        if (static_cast<std::size_t>(Rows[i].question) != i)
            return false;
    return true;
}
static_assert(isInOrder());

} // namespace

const AtspiQuestionForm& formOf(AtspiQuestion question)
{
    return Rows[static_cast<std::size_t>(question)].form;
}

} // namespace tarnwick
