// SPDX-License-Identifier: MIT
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <memory>
#include <type_traits>

namespace tarnwick {

struct CfRelease
{
    void operator()(CFTypeRef reference) const noexcept { CFRelease(reference); }
};

/// Owns one reference, which it releases: for the results of Create and Copy functions on the line that
/// receives them, never for those of Get functions.
template <typename Reference>
using CfOwned = std::unique_ptr<std::remove_pointer_t<Reference>, CfRelease>;

/// A reference of one's own to what a Get function gave; null for null.
template <typename Reference>
[[nodiscard]] CfOwned<Reference> cfRetained(Reference reference)
{
    if (reference)
        CFRetain(reference);
    return CfOwned<Reference>(reference);
}

} // namespace tarnwick
