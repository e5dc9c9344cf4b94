// SPDX-License-Identifier: MIT
#include "foundation/Failure.h"

#include <cstdio>
#include <cstdlib>

namespace tarnwick::failure {

namespace {

bool ending = false;

} // namespace

void endProcess(std::string_view message)
{
    std::fwrite(message.data(), 1, message.size(), stderr);
    ending = true;
    std::exit(1);
}

bool endsProcess()
{
    return ending;
}

} // namespace tarnwick::failure
