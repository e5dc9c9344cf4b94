// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

/// The end of a process that cannot do its work.
namespace tarnwick::failure {

/// Writes `message` to standard error as it is, and ends the process with status 1 by way of the exit
/// handlers.
[[noreturn]] void endProcess(std::string_view message);

/// Whether endProcess() is what ends the process. For exit handlers: libraries end it, too, without a failure
/// of ours.
[[nodiscard]] bool endsProcess();

} // namespace tarnwick::failure
