// SPDX-License-Identifier: MIT
#include "platform/linux/keys/Accelerator.h"

#include "platform/linux/hotkeys/DesktopShortcut.h"
#include "platform/linux/menus/KeyBinding.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace tarnwick {
namespace {

struct Row
{
    QString text;
    std::optional<Accelerator> accelerator;
};

TEST(Accelerator, isModifiersInAngleBracketsAndAKey)
{
    const Row rows[] = {
        {u"t"_s, Accelerator{.key = u"t"_s}},
        {u"<Primary><Alt>t"_s, Accelerator{.control = true, .alt = true, .key = u"t"_s}},
        {u"<CTRL><ctl><Control>t"_s, Accelerator{.control = true, .key = u"t"_s}},
        {u"<Shift><shft>F4"_s, Accelerator{.shift = true, .key = u"F4"_s}},
        {u"<Mod1>t"_s, Accelerator{.alt = true, .key = u"t"_s}},
        {u"<Super><Mod4>t"_s, Accelerator{.super = true, .key = u"t"_s}},
        {u"<Meta>t"_s, Accelerator{.meta = true, .key = u"t"_s}},
        {u"<Release>t"_s, Accelerator{.key = u"t"_s}},
        {u"<Alt>"_s, Accelerator{.alt = true}},
        {u""_s, Accelerator{}},
        {u"<Alt"_s, std::nullopt},
        {u"<>t"_s, std::nullopt},
        {u"<Hyper>t"_s, std::nullopt},
        {u"<Mod3>t"_s, std::nullopt},
        {u"<Alt ><t"_s, std::nullopt},
    };
    for (const Row& row : rows)
        EXPECT_TRUE(Accelerator::parse(row.text) == row.accelerator) << row.text.toStdString();
}

TEST(Accelerator, metaIsOnTheAltKeys_forTheDesktopAsForAMenu)
{
    const auto ofDesktop = DesktopShortcut::ofAccelerator(u"<Meta>x"_s);
    const auto ofMenu = KeyBinding::parseAccelerator(u"<Meta>x"_s);
    ASSERT_TRUE(ofDesktop && ofMenu);
    EXPECT_TRUE(*ofDesktop == *DesktopShortcut::ofAccelerator(u"<Alt>x"_s));
    EXPECT_TRUE(*ofMenu == *KeyBinding::parseAccelerator(u"<Alt>x"_s));
    EXPECT_TRUE(KeyBinding::parseAccelerator(u"<Meta>x"_s, KeyBinding::Meta::IsSuper) ==
                KeyBinding::parseAccelerator(u"<Super>x"_s))
        << "where a program calls the logo key so";
}

} // namespace
} // namespace tarnwick
