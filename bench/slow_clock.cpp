// SPDX-License-Identifier: MIT
// Lets the time of the program, and so the time that a reading may take, pass more slowly. It stands before
// the clock of the language in a target that is linked as bench/CMakeLists.txt has it.
#include "bench/slow_clock.h"

namespace {

int slowness = 1;

} // namespace

extern "C" {

using Clock = std::chrono::steady_clock;

Clock::rep __real__ZNSt6chrono3_V212steady_clock3nowEv();
Clock::rep __wrap__ZNSt6chrono3_V212steady_clock3nowEv();

// A time point is passed as its count.
Clock::rep __wrap__ZNSt6chrono3_V212steady_clock3nowEv()
{
    return __real__ZNSt6chrono3_V212steady_clock3nowEv() / slowness;
}
}

namespace bench {

void slowTimeDown(int times)
{
    slowness = times;
}

std::chrono::nanoseconds trueTime()
{
    return std::chrono::nanoseconds(__real__ZNSt6chrono3_V212steady_clock3nowEv());
}

} // namespace bench
