// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>

struct zwlr_virtual_pointer_v1;

namespace tarnwick {

class CompositorConnection;

/// Lets the compositor look at what is below the pointer, by a pointer that moves by nothing: sway 1.10 does
/// not look when a surface comes. Does nothing where there are no such pointers. GUI thread only.
class PointerNudge final : public QObject
{
public:
    /// `connection` must outlive this.
    explicit PointerNudge(CompositorConnection& connection);
    ~PointerNudge() override;

    /// Now, and again every 8 ms until stop().
    void start();
    void stop();

private:
    void _nudge();

    CompositorConnection& _connection;
    zwlr_virtual_pointer_v1* _pointer = nullptr;
    QTimer _timer;
};

} // namespace tarnwick
