// SPDX-License-Identifier: MIT
#include "app/Inspection.h"
#include "platform/macos/accessibility/AXAccessibility.h"
#include "platform/macos/session/MacSession.h"
#include "platform/macos/workspace/AppKitWorkspace.h"
#include "platform/macos/workspace/CGScreens.h"
#include "platform/qt/application/QtApplication.h"
#include "platform/qt/application/QtClock.h"
#include "platform/qt/application/QtFonts.h"
#include "platform/qt/menu/KeyEquivalentText.h"
#include "shortcut/KeyStrings.h"

namespace tarnwick {

Inspection openInspection(int& argc, char** argv)
{
    Inspection inspection;
    inspection.session = std::make_unique<MacSession>(argc, argv);
    const QtEventConverter withoutKeyboard(
        {[](const QKeyEvent&) { return std::optional<quint16>(); }, [](quint16, bool) { return QString(); }});
    inspection.application = std::make_unique<QtApplication>(withoutKeyboard);
    inspection.clock = std::make_unique<QtClock>();
    inspection.fonts = std::make_unique<QtFonts>();
    inspection.screens = std::make_unique<CGScreens>();
    inspection.accessibility = std::make_unique<AXAccessibility>();
    inspection.workspace = std::make_unique<AppKitWorkspace>();
    inspection.keyEquivalentText = [](const QString& keyEquivalent, quint64 modifierMask) {
        const QString key = keyEquivalentText(keyEquivalent, 0);
        return key.isEmpty() ? key : SRStringForCocoaModifierFlags(modifierMask) + key;
    };
    return inspection;
}

} // namespace tarnwick
