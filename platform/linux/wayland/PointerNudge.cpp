// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/PointerNudge.h"

#include "platform/linux/wayland/CompositorConnection.h"

#include <chrono>
#include <wayland-client.h>
#include <wlr-virtual-pointer-unstable-v1-client.h>

namespace tarnwick {

using namespace std::chrono_literals;

PointerNudge::PointerNudge(CompositorConnection& connection) : _connection(connection)
{
    _timer.setInterval(8ms);
    connect(&_timer, &QTimer::timeout, this, &PointerNudge::_nudge);
    auto* manager =
        connection.bind<zwlr_virtual_pointer_manager_v1>(zwlr_virtual_pointer_manager_v1_interface, 1);
    if (!manager)
        return;
    _pointer = zwlr_virtual_pointer_manager_v1_create_virtual_pointer(manager, connection.seat());
    zwlr_virtual_pointer_manager_v1_destroy(manager);
    connection.flush();
}

PointerNudge::~PointerNudge()
{
    if (_pointer)
        zwlr_virtual_pointer_v1_destroy(_pointer);
}

void PointerNudge::start()
{
    if (!_pointer)
        return;
    _nudge();
    _timer.start();
}

void PointerNudge::stop()
{
    _timer.stop();
}

void PointerNudge::_nudge()
{
    zwlr_virtual_pointer_v1_motion(_pointer, 0, 0, 0);
    zwlr_virtual_pointer_v1_frame(_pointer);
    _connection.flush();
}

} // namespace tarnwick
