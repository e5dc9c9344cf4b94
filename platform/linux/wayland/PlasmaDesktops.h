// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <memory>
#include <vector>

struct org_kde_plasma_virtual_desktop;
struct org_kde_plasma_virtual_desktop_management;

namespace tarnwick {

class CompositorConnection;

/// The virtual desktops of KWin, where a surface over everything keeps the keyboard from one to the other:
/// nothing else tells then that the windows are others. Tells nothing elsewhere, nor in a program that was
/// built without. GUI thread only.
class PlasmaDesktops final : public QObject
{
    Q_OBJECT

public:
    explicit PlasmaDesktops(std::shared_ptr<CompositorConnection> connection);
    ~PlasmaDesktops() override;

Q_SIGNALS:
    /// Another desktop is shown.
    void changed();

private:
    using Desktop = org_kde_plasma_virtual_desktop;
    using Manager = org_kde_plasma_virtual_desktop_management;

    void _add(const char* identifier);
    void _activated();
    void _remove(Desktop* desktop);

    std::shared_ptr<CompositorConnection> _connection;
    Manager* _manager = nullptr;
    std::vector<Desktop*> _desktops;
    bool _known = false; ///< which one is shown
};

} // namespace tarnwick
