// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace tarnwick {

/// Base of a port: holds the one adapter that everything reaches through Port::shared(). Does not own it.
template <typename Port>
class SharedPort
{
public:
    /// The one that main or a test has set; must have been set.
    static Port& shared()
    {
        Q_ASSERT_X(_shared != nullptr, "SharedPort", "the port was not set before its first use");
        return *_shared;
    }
    /// Null where nobody has set one.
    static Port* sharedOrNull() { return _shared; }
    /// Not owned. It must be replaced, by null for instance, before it is destroyed.
    static void setShared(Port* port) { _shared = port; }

private:
    SharedPort() = default;
    friend Port;

    inline static Port* _shared = nullptr;
};

} // namespace tarnwick
