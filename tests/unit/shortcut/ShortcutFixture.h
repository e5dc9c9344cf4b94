// SPDX-License-Identifier: MIT
#pragma once

#include "tests/fakes/FakeDesktop.h"

#include <gtest/gtest.h>

namespace tarnwick {

/// Everything around the recorder, faked.
class ShortcutFixture : public ::testing::Test, protected FakeDesktop
{
};

} // namespace tarnwick
