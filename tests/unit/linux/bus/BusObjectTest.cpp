// SPDX-License-Identifier: MIT
#include "platform/linux/bus/BusObject.h"

#include <gtest/gtest.h>

using namespace tarnwick;

TEST(BusObject, whatItHas_andWhatIsRightBelowIt)
{
    const BusObject object = BusObject::fromIntrospection(
        "<!DOCTYPE node PUBLIC \"-//freedesktop//DTD D-BUS Object Introspection 1.0//EN\"\n"
        " \"http://www.freedesktop.org/standards/dbus/1.0/introspect.dtd\">\n"
        "<node name=\"/org\">\n"
        " <interface name=\"org.gtk.Actions\"><method name=\"List\"><arg type=\"as\" "
        "name=\"a\"/></method></interface>\n"
        " <annotation name=\"other\" value=\"1\"/>\n"
        " <node name=\"example\"><interface name=\"inner\"/><node name=\"below\"/></node>\n"
        " <node name=\"other\"/>\n"
        " <interface name=\"last\"/>\n"
        "</node>");
    EXPECT_EQ(object, (BusObject{{"org.gtk.Actions", "last"}, {"example", "other"}}));
}

TEST(BusObject, ofATextThatIsNone_whatCouldBeRead)
{
    const std::pair<const char*, BusObject> rows[] = {
        {"", {}},
        {"no markup", {}},
        {"<interface name=\"a\"/>", {}},
        {"<other><node name=\"a\"/></other>", {}},
        {"<node/>", {}},
        {"<node><node/><node name=\"\"/><interface/></node>", {}},
        {"<node><interface name=\"a\"/><node name=\"b\"/><node name=", {{"a"}, {"b"}}},
        {"<node><interface name=\"a\"/></wrong><node name=\"b\"/>", {{"a"}, {}}},
    };
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(BusObject::fromIntrospection(text), expected) << text;
}

TEST(BusObject, moreNamesThanAnyoneNeeds_areCutOff)
{
    QByteArray text = "<node>";
    for (int number = 0; number < 1'002; ++number)
        text += "<node name=\"a\"/><interface name=\"b\"/>";
    const BusObject object = BusObject::fromIntrospection(text + "</node>");
    EXPECT_EQ(object.children.size(), 1'000);
    EXPECT_EQ(object.interfaces.size(), 1'000);
}

TEST(BusObject, thePathOfAChild)
{
    EXPECT_EQ(childPath("/", "a"), "/a");
    EXPECT_EQ(childPath("/a/b", "c_1"), "/a/b/c_1");
    for (const char* name : {"", "a/", "/a", "a-b", "..", "a b"})
        EXPECT_EQ(childPath("/a", name), "") << name;
}
