// SPDX-License-Identifier: MIT
#pragma once

namespace tarnwick {

/// The address of what the system exports under this name; null in a version that does not have it. For what
/// not every version has, or may have one day; all other functions are called by name.
[[nodiscard]] void* systemSymbol(const char* name);

template <typename Function>
[[nodiscard]] Function* systemFunction(const char* name)
{
    return reinterpret_cast<Function*>(systemSymbol(name));
}

/// Null for one that is missing.
template <typename Reference>
[[nodiscard]] Reference systemConstant(const char* name)
{
    const auto* place = static_cast<const Reference*>(systemSymbol(name));
    return place ? *place : nullptr;
}

} // namespace tarnwick
