// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace tarnwick {

/// Holds the one adapter of a port that the core reaches through Port::shared(). Does not own it.
template <typename Port>
class SharedPort
{
public:
    static Port& get()
    {
        Q_ASSERT_X(_port != nullptr, "SharedPort", "the port was not set before its first use");
        return *_port;
    }
    /// Null before the port is set.
    static Port* find() { return _port; }
    static void set(Port* port) { _port = port; }

private:
    inline static Port* _port = nullptr;
};

} // namespace tarnwick
