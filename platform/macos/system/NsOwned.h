// SPDX-License-Identifier: MIT
// For Objective-C++ only.
#pragma once

#import <Foundation/Foundation.h>
#include <utility>

namespace tarnwick {

/// Owns one reference to an object of this class, which it releases: for the results of alloc, new, copy and
/// retain.
template <typename Class>
class NsOwned
{
public:
    NsOwned() = default;
    explicit NsOwned(Class* object) : _object(object) {}
    ~NsOwned() { [_object release]; }
    NsOwned(NsOwned&& other) noexcept : _object(std::exchange(other._object, nil)) {}
    NsOwned& operator=(NsOwned&& other) noexcept
    {
        std::swap(_object, other._object);
        return *this;
    }
    NsOwned(const NsOwned&) = delete;
    NsOwned& operator=(const NsOwned&) = delete;

    [[nodiscard]] Class* get() const { return _object; }

private:
    Class* _object = nil;
};

} // namespace tarnwick
