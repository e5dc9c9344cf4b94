// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <functional>
#include <vector>

namespace tarnwick {

/// Makes each of its adapters, fakes or others, the one that its port's shared() gives. At its end each port
/// has the adapter back that it had before. Declared after the adapters, which it does not own and which must
/// outlive it.
class SharedPorts
{
public:
    template <typename... Adapters>
    explicit SharedPorts(Adapters&... adapters)
    {
        (_share(adapters), ...);
    }
    ~SharedPorts()
    {
        for (auto restore = _restore.rbegin(); restore != _restore.rend(); ++restore)
            (*restore)();
    }
    Q_DISABLE_COPY_MOVE(SharedPorts)

private:
    template <typename Adapter>
    void _share(Adapter& adapter)
    {
        _restore.push_back([earlier = Adapter::sharedOrNull()] { Adapter::setShared(earlier); });
        Adapter::setShared(&adapter);
    }

    std::vector<std::function<void()>> _restore;
};

} // namespace tarnwick
