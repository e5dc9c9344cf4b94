// SPDX-License-Identifier: MIT
#pragma once

#include "tests/macos/simulation/SimulatedMac.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace tarnwick {

/// What may stay with the system until the process ends, by the function that hands it out: nothing else may.
inline const QStringList KeptForLife{
    QStringLiteral("CFMachPortCreateRunLoopSource"), // of every event tap, the released ones too
    QStringLiteral("RegisterEventHotKey"),           // the hot key of the time when the program ends
};

/// A test on a freshly started system. At its end no reference may be left over, but for those named in
/// keptForLife, and none may have been misused.
class MacTest : public ::testing::Test
{
protected:
    void SetUp() override { mac.reset(); }

    void TearDown() override
    {
        EXPECT_EQ(mac.faults(), QStringList());
        keptForLife.sort();
        EXPECT_EQ(mac.unreleased(), keptForLife);
        for (const QString& name : std::as_const(keptForLife))
            EXPECT_TRUE(KeptForLife.contains(name)) << name.toStdString();
    }

    void keepSource() { keptForLife.append(KeptForLife.at(0)); }
    void keepHotKey() { keptForLife.append(KeptForLife.at(1)); }

    SimulatedMac& mac = SimulatedMac::instance();
    QStringList keptForLife; ///< once for each reference that is left
};

} // namespace tarnwick
