// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopParts.h"
#include "platform/linux/elements/AtspiAccessibility.h"
#include "platform/linux/elements/SourceReport.h"
#include "platform/linux/session/LinuxSession.h"
#include "platform/linux/workspace/LinuxWorkspace.h"
#include "platform/linux/workspace/X11FrontApplication.h"
#include "platform/linux/x11/LinuxScreens.h"
#include "platform/qt/application/QtApplication.h"
#include "platform/qt/application/QtClock.h"
#include "platform/qt/application/QtFonts.h"
#include "platform/qt/menu/KeyEquivalentText.h"

#include <utility>

namespace tarnwick {

Inspection makeInspection(int argc, char** argv, const QByteArray& platform,
                          const LinuxReading::MakeFront& makeFront)
{
    Inspection inspection;
    inspection.session = std::make_unique<LinuxSession>(argc, argv, LinuxSession::Part::Visitor, platform);
    const QtEventConverter withoutKeyboard(
        {[](const QKeyEvent&) { return std::optional<quint16>(); }, [](quint16, bool) { return QString(); }});
    inspection.application = std::make_unique<QtApplication>(withoutKeyboard);
    inspection.clock = std::make_unique<QtClock>();
    inspection.fonts = std::make_unique<QtFonts>();
    inspection.screens = std::make_unique<LinuxScreens>();
    const auto reading = std::make_shared<LinuxReading>(makeFront);
    inspection.workspace = std::make_unique<LinuxWorkspace>(reading);
    inspection.accessibility = std::make_unique<AtspiAccessibility>(reading);
    inspection.keyEquivalentText = keyEquivalentText;
    inspection.lookAtFront = [reading] { static_cast<void>(reading->front->lookAgain()); };
    inspection.menuSources = [reading](std::optional<qint64> processIdentifier) {
        return SourceReport(*reading).lines(processIdentifier);
    };
    return inspection;
}

Inspection openInspection(int& argc, char** argv)
{
    auto wayland = openWaylandInspection(argc, argv);
    return wayland ? std::move(*wayland) : makeInspection(argc, argv, "xcb", &X11FrontApplication::make);
}

} // namespace tarnwick
