// SPDX-License-Identifier: MIT
// The main function of every GoogleTest program here: a Qt application that needs no display.
#include "tests/RunTests.h"

#include <QApplication>

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return tarnwick::runTests();
}
