// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

namespace tarnwick {

/// The status to end with. To run no test, since none matches a filter, is a failure.
inline int runTests()
{
    const int status = RUN_ALL_TESTS();
    if (::testing::UnitTest::GetInstance()->test_to_run_count() > 0)
        return status;
    std::fprintf(stderr, "There is no such test.\n");
    return EXIT_FAILURE;
}

} // namespace tarnwick
