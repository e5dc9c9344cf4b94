// SPDX-License-Identifier: MIT
#pragma once

/// Calls that the program has sent over sd-bus so far. A target counts them when it is linked as
/// bench/CMakeLists.txt has it.
extern "C" long bench_messages_sent(void);
