// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/RememberedKeyBindings.h"

#include "platform/linux/atspi/AtspiConstants.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/SharedPorts.h"

#include <gtest/gtest.h>

#include <functional>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

using Told = std::optional<QString>;

AtspiFacts itemNamed(const QString& name, const Told& keyBinding = u";;<Primary>n"_s)
{
    AtspiFacts item;
    item.reference = {":1.5", "/item", 1};
    item.name = name;
    item.role = atspi::RoleMenuItem;
    item.keyBinding = keyBinding;
    return item;
}

class RememberedKeyBindingsTest : public ::testing::Test
{
protected:
    FakeClock clock;
    SharedPorts sharedPorts{clock};
    RememberedKeyBindings bindings;
};

struct Question
{
    const char* what;
    std::function<void(AtspiFacts&)> change;
    Told answer;
};

} // namespace

TEST_F(RememberedKeyBindingsTest, of_tellsTheSameItemOnly)
{
    const Question questions[] = {
        {"the same item", [](AtspiFacts&) {}, u";;<Primary>n"_s},
        {"its states are nothing to it", [](AtspiFacts& item) { item.states = 8; }, u";;<Primary>n"_s},
        {"another name", [](AtspiFacts& item) { item.name = u"Open"_s; }, {}},
        {"another letter case", [](AtspiFacts& item) { item.name = u"new"_s; }, {}},
        {"a name that has not come", [](AtspiFacts& item) { item.name.reset(); }, {}},
        {"another role", [](AtspiFacts& item) { item.role = atspi::RoleCheckMenuItem; }, {}},
        {"a role that has not come", [](AtspiFacts& item) { item.role.reset(); }, {}},
        {"another object", [](AtspiFacts& item) { item.reference.path = "/other"; }, {}},
        {"another application", [](AtspiFacts& item) { item.reference.service = ":1.6"; }, {}},
        {"another bus", [](AtspiFacts& item) { item.reference.connection = 2; }, {}},
    };
    bindings.remember(itemNamed(u"New"_s));
    for (const Question& question : questions) {
        AtspiFacts item = itemNamed(u"New"_s, {});
        question.change(item);
        EXPECT_EQ(bindings.of(item), question.answer) << question.what;
    }
}

TEST_F(RememberedKeyBindingsTest, items_areRememberedForAMinute)
{
    const AtspiFacts item = itemNamed(u"New"_s);
    EXPECT_FALSE(bindings.knows(item.reference));
    bindings.remember(item);
    clock.advance(59.9);
    EXPECT_TRUE(bindings.knows(item.reference));
    EXPECT_EQ(bindings.of(item), u";;<Primary>n"_s);
    clock.advance(0.2);
    EXPECT_FALSE(bindings.knows(item.reference));
    EXPECT_EQ(bindings.of(item), u";;<Primary>n"_s)
        << "a read that has begun goes on with what it counted on";
    bindings.remember(item);
    EXPECT_TRUE(bindings.knows(item.reference));
}

TEST_F(RememberedKeyBindingsTest, whatIsTold_replacesWhatWasTold)
{
    bindings.remember(itemNamed(u"New"_s));
    bindings.remember(itemNamed(u"New"_s, u";;<Primary>x"_s));
    EXPECT_EQ(bindings.of(itemNamed(u"New"_s)), u";;<Primary>x"_s);
    EXPECT_EQ(bindings.count(), 1);
}

TEST_F(RememberedKeyBindingsTest, whatTellsNothing_isForgotten)
{
    const auto without = [](const std::function<void(AtspiFacts&)>& change) {
        AtspiFacts item = itemNamed(u"New"_s);
        change(item);
        return item;
    };
    const QList<AtspiFacts> items = {
        itemNamed(u"New"_s, u""_s),
        itemNamed(u"New"_s, {}),
        without([](AtspiFacts& item) { item.name.reset(); }),
        without([](AtspiFacts& item) { item.role.reset(); }),
    };
    for (const AtspiFacts& item : items) {
        bindings.remember(itemNamed(u"New"_s));
        bindings.remember(item);
        EXPECT_FALSE(bindings.knows(item.reference));
        EXPECT_EQ(bindings.count(), 0);
    }
}

TEST_F(RememberedKeyBindingsTest, itemsAreFew_andTheOldGoFirst)
{
    const auto remember = [this](int number) {
        AtspiFacts item = itemNamed(u"New"_s);
        item.reference.path = QByteArray::number(number);
        bindings.remember(item);
        return item.reference;
    };
    constexpr auto Half = static_cast<int>(RememberedKeyBindings::MaximumItems / 2);
    for (int i = 0; i < Half; ++i)
        static_cast<void>(remember(i));
    clock.advance(30);
    for (int i = Half; i < 2 * Half; ++i)
        static_cast<void>(remember(i));
    EXPECT_EQ(bindings.count(), RememberedKeyBindings::MaximumItems);
    clock.advance(40);
    static_cast<void>(remember(-1));
    EXPECT_EQ(bindings.count(), Half + 1) << "the first half is over";
    EXPECT_TRUE(bindings.knows({":1.5", QByteArray::number(Half), 1}));
    for (int i = 0; i < Half; ++i)
        static_cast<void>(remember(10 * Half + i));
    EXPECT_LE(bindings.count(), RememberedKeyBindings::MaximumItems);
    EXPECT_TRUE(bindings.knows({":1.5", QByteArray::number(11 * Half - 1), 1})) << "the last one is there";
}
