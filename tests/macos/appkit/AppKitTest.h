// SPDX-License-Identifier: MIT
#pragma once

#include "tests/macos/appkit/FakeAppKit.h"

#include <gtest/gtest.h>

#include <memory>

namespace tarnwick {

/// A test on the fake AppKit; it fails where something is kept, or something was done that the system
/// forbids.
class AppKitTest : public ::testing::Test
{
protected:
    AppKitTest()
    {
        appkit::reset();
        _before = appkit::alive();
    }
    void TearDown() override
    {
        _pool.reset();
        EXPECT_EQ(appkit::alive(), _before) << "objects that nobody released";
        EXPECT_TRUE(system().faults.isEmpty()) << system().faults.join(u'\n').toStdString();
    }

    [[nodiscard]] static appkit::System& system() { return appkit::theSystem(); }

private:
    std::unique_ptr<appkit::Pool> _pool = std::make_unique<appkit::Pool>();
    int _before = 0;
};

} // namespace tarnwick
