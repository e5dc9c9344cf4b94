// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <utility>

namespace tarnwick {

/// One observer's hold on what it observes. Destroying it ends the observation, also from inside the callback
/// and after what it observed is gone.
class Observation
{
public:
    explicit Observation(std::shared_ptr<const void> callback) : _callback(std::move(callback)) {}
    ~Observation() = default;
    Observation(const Observation&) = delete;
    Observation& operator=(const Observation&) = delete;

private:
    std::shared_ptr<const void> _callback;
};

} // namespace tarnwick
