// SPDX-License-Identifier: MIT
// The fake keyboard types what the layouts of its names type on this system.
#include "platform/linux/keys/KeyCodes.h"
#include "platform/linux/keys/XkbKeymap.h"
#include "tests/fakes/FakeKeyboardLayout.h"

#include <gtest/gtest.h>

using namespace tarnwick;

namespace {

constexpr quint16 KeyCodes = 128;
constexpr quint32 Shift = 0x200;
constexpr quint32 Option = 0x800;

QString typedBy(const KeyboardLayout& keyboard, quint16 code, quint32 state)
{
    quint32 deadKeyState = 0;
    const auto layout = keyboard.copyCurrentKeyboardInputSource();
    return layout->keyTranslate(code, 3, state, keyboard.keyboardType(), 0, deadKeyState).value_or(QString());
}

} // namespace

TEST(KeyboardLayoutContract, fakeAndSystem_typeTheSame_forEveryKey)
{
    const QList<std::pair<FakeKeyboardLayout::Layout, QByteArray>> layouts{{FakeKeyboardLayout::Us, "us"},
                                                                           {FakeKeyboardLayout::De, "de"},
                                                                           {FakeKeyboardLayout::Fr, "fr"},
                                                                           {FakeKeyboardLayout::Jp, "jp"}};
    FakeKeyboardLayout fake;
    for (const auto& [layout, name] : layouts) {
        const auto real = XkbKeymap::ofNames(name);
        ASSERT_TRUE(real) << "the layouts of this system are missing: xkb-data";
        fake.select(layout);
        for (quint16 code = 0; code < KeyCodes; ++code) {
            for (const quint32 state : {quint32(0), Shift, Option}) {
                const auto x11 = x11KeyCodeOf(code);
                const QString typed = x11 ? real->text(*x11, state == Shift, state == Option) : QString();
                EXPECT_EQ(typedBy(fake, code, state).toStdString(), typed.toStdString())
                    << name.constData() << ", key code " << code << ", state " << state;
            }
        }
    }
}

TEST(KeyboardLayoutContract, codeThatNoKeyHas_isRefused)
{
    const FakeKeyboardLayout fake;
    quint32 deadKeyState = 0;
    EXPECT_FALSE(fake.copyCurrentKeyboardInputSource()->keyTranslate(KeyCodes, 3, 0, 0, 0, deadKeyState));
}
