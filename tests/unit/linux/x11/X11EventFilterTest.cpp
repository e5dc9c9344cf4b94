// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11EventFilter.h"

#include <QByteArray>
#include <QList>
#include <gtest/gtest.h>

namespace tarnwick {
namespace {

constexpr std::uint8_t Opcode = 131;

class Seen final : public X11EventFilter
{
public:
    QList<int> types;
    bool keeps = false;

private:
    [[nodiscard]] bool filter(std::uint8_t type, xcb_generic_event_t& /*event*/) override
    {
        types.append(type);
        return keeps;
    }
};

xcb_generic_event_t eventOf(std::uint8_t type, std::uint8_t second = 0)
{
    xcb_generic_event_t event{};
    event.response_type = type;
    event.pad0 = second;
    return event;
}

TEST(X11EventFilter, tellsTheTypeOfAnEvent_whoeverHasSentIt)
{
    Seen seen;
    auto fromServer = eventOf(XCB_KEY_PRESS);
    auto fromProgram = eventOf(XCB_KEY_PRESS | 0x80);
    EXPECT_FALSE(seen.nativeEventFilter("xcb_generic_event_t", &fromServer, nullptr));
    seen.keeps = true;
    EXPECT_TRUE(seen.nativeEventFilter("xcb_generic_event_t", &fromProgram, nullptr));
    EXPECT_EQ(seen.types, (QList<int>{XCB_KEY_PRESS, XCB_KEY_PRESS}));
}

TEST(X11EventFilter, seesNothingOfWhatIsNoEventOfX)
{
    Seen seen;
    seen.keeps = true;
    int other = 0;
    EXPECT_FALSE(seen.nativeEventFilter("wl_event", &other, nullptr));
    EXPECT_TRUE(seen.types.isEmpty());
}

TEST(X11EventFilter, anEventOfAnExtension_hasItsOpcode)
{
    EXPECT_TRUE(isOfX11Extension(eventOf(XCB_GE_GENERIC, Opcode), Opcode));
    EXPECT_TRUE(isOfX11Extension(eventOf(XCB_GE_GENERIC | 0x80, Opcode), Opcode));
    EXPECT_FALSE(isOfX11Extension(eventOf(XCB_GE_GENERIC, Opcode + 1), Opcode));
    EXPECT_FALSE(isOfX11Extension(eventOf(XCB_KEY_PRESS, Opcode), Opcode)) << "a key code";
    EXPECT_FALSE(isOfX11Extension(eventOf(XCB_GE_GENERIC, 0), 0))
        << "an extension that is not there has none";
}

} // namespace
} // namespace tarnwick
