// SPDX-License-Identifier: MIT
#pragma once

#include "app/Desktop.h"
#include "platform/linux/look/WindowIcon.h"
#include "platform/linux/session/QtArguments.h"
#include "platform/linux/session/SessionBusWatch.h"
#include "platform/qt/menu/PopUpTrigger.h"

#include <QApplication>

#include <functional>
#include <memory>
#include <utility>

namespace tarnwick {

class PopUpRequest;
class SessionInstance;
class TerminationSignals;

/// Tarnwick in a user's session: Qt's application object, one instance a session, and an orderly end when the
/// session, the terminal or the display goes.
class LinuxSession final : public DesktopSession
{
public:
    /// Whether this program is the Tarnwick of the session, or only looks at what it would show.
    enum class Part { Tarnwick, Visitor };

    /// Ends the process with a message where there is no display.
    LinuxSession(int argc, char** argv, Part part, const QByteArray& platform = "xcb");
    ~LinuxSession() override;

    [[nodiscard]] bool handedOverToRunningInstance() override;
    /// Launches before the loop: what the toolkit does at its beginning takes time.
    int run(const std::function<void()>& launch) override;

    [[nodiscard]] SessionBusWatch& bus() { return _bus; }

    /// Without one, other programs cannot have the menu opened. To be set before run().
    void setPopUpRequest(std::unique_ptr<PopUpRequest> request);
    using AskedForMenu = std::function<void(PopUpTrigger::Kind by)>;
    /// `asked` runs whenever another program asks for the menu. To be set before run().
    void whenAskedForMenu(AskedForMenu asked) { _menuAskedFor = std::move(asked); }

    /// Asked whenever the toolkit complains: where the compositor has gone, the program ends in order before
    /// the toolkit ends it where it stands. To be set before run().
    void setCompositorIsGone(std::function<bool()> isGone) { _compositorIsGone = std::move(isGone); }

private:
    void _followRequests();

    QtArguments _arguments;
    QApplication _application;
    WindowIcon _windowIcon;
    SessionBusWatch _bus;
    std::unique_ptr<SessionInstance> _instance; ///< null for a visitor
    std::unique_ptr<TerminationSignals> _signals;
    std::unique_ptr<PopUpRequest> _popUpRequest;
    AskedForMenu _menuAskedFor;
    std::function<bool()> _compositorIsGone;
};

} // namespace tarnwick
