// SPDX-License-Identifier: MIT
#pragma once

#include "tests/macos/simulation/SimulatedMac.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace tarnwick {

/// A test on a freshly started system. At its end no reference may be left over, but for those named in
/// keptForLife, and none may have been misused.
class MacTest : public ::testing::Test
{
protected:
    void SetUp() override { mac.reset(); }

    void TearDown() override
    {
        EXPECT_EQ(mac.faults(), QStringList());
        EXPECT_EQ(mac.unreleased(), keptForLife);
    }

    SimulatedMac& mac = SimulatedMac::instance();
    QStringList keptForLife; ///< functions whose results stay with the system until the process ends
};

} // namespace tarnwick
