// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace bench {

/// From now on the program's steady clock runs so many times more slowly.
void slowTimeDown(int times);

/// Of a clock that nothing slows down.
std::chrono::nanoseconds trueTime();

} // namespace bench
