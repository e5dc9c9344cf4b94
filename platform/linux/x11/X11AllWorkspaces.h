// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QWidget;

namespace tarnwick {

/// Keeps one window on every workspace. A window manager forgets that of a window that is closed, so it is
/// told again before each showing. Goes with the window, which owns it.
class X11AllWorkspaces final : public QObject
{
    Q_OBJECT

public:
    explicit X11AllWorkspaces(QWidget& window);

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void _tell() const;

    QWidget& _window;
};

} // namespace tarnwick
