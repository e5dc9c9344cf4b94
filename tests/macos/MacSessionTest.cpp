// SPDX-License-Identifier: MIT
// Has a main function of its own: there must be no Qt application yet.
#include "platform/macos/session/MacSession.h"

#include "tests/RunTests.h"

#include <gtest/gtest.h>

namespace {

QByteArray whenQtStarted;

void look()
{
    whenQtStarted = qgetenv("QT_MAC_DISABLE_FOREGROUND_APPLICATION_TRANSFORM");
}
Q_COREAPP_STARTUP_FUNCTION(look)

} // namespace

namespace tarnwick {

TEST(MacSessionTest, applicationInFront_staysThereAsQtStarts)
{
    int argc = 1;
    char name[] = "tarnwick";
    char* argv[] = {name, nullptr};
    const MacSession session(argc, argv);
    EXPECT_EQ(whenQtStarted, "1");
}

} // namespace tarnwick

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    return tarnwick::runTests();
}
