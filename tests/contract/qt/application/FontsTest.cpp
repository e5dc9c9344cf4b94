// SPDX-License-Identifier: MIT
#include "platform/qt/application/QtFonts.h"
#include "tests/contract/foundation/FontsContract.h"
#include "tests/fakes/FakeFonts.h"

using namespace tarnwick;

namespace {

TEST(Fonts, fake_keepsTheContract)
{
    fontsContract(FakeFonts());
}

TEST(Fonts, toolkits_keepTheContract)
{
    fontsContract(QtFonts());
}

} // namespace
