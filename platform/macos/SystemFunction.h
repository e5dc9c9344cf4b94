// SPDX-License-Identifier: MIT
#pragma once

namespace tarnwick {

/// The function of the system with this name; null in a version that does not have it. For those that were
/// taken out or came late; all others are called by name.
[[nodiscard]] void* systemFunction(const char* name);

template <typename Function>
[[nodiscard]] Function* systemFunction(const char* name)
{
    return reinterpret_cast<Function*>(systemFunction(name));
}

} // namespace tarnwick
