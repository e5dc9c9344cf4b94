// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopParts.h"

#include "platform/linux/keys/KeyCodes.h"
#include "platform/linux/keys/XkbKeymap.h"
#include "platform/linux/xdg/DesktopNames.h"
#include "platform/linux/xdg/XdgSession.h"

#include <QKeyEvent>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

using Keymap = std::function<std::shared_ptr<const XkbKeymap>()>;

/// What the key types alone or with Shift on the layout that types now.
QString letterOf(const Keymap& keymapNow, quint16 keyCode, bool shift)
{
    const auto code = x11KeyCodeOf(keyCode);
    const auto keymap = code ? keymapNow() : nullptr;
    return keymap ? keymap->text(*code, shift, false) : QString();
}

/// What the modifier key is on that layout, by itself.
quint64 modifierOf(const Keymap& keymapNow, quint16 keyCode)
{
    const auto code = x11KeyCodeOf(keyCode);
    const auto keymap = code ? keymapNow() : nullptr;
    return keymap ? keymap->modifier(*code) : 0;
}

} // namespace

QtEventConverter makeEventConverter(const Keymap& keymap)
{
    return QtEventConverter({
        [](const QKeyEvent& event) { return virtualKeyCodeOf(event.nativeScanCode()); },
        [keymap](quint16 keyCode, bool shift) { return letterOf(keymap, keyCode, shift); },
        [keymap](quint16 keyCode) { return modifierOf(keymap, keyCode); },
    });
}

QString symbolicIconName()
{
    const QStringList desktops = xdg_session::currentDesktops();
    if (!desktops.contains(u"KDE"_s) && !desktops.contains(u"GNOME"_s))
        return {};
    const QString name = desktop_names::BusName + u"-symbolic"_s;
    const QString file = u"icons/hicolor/symbolic/apps/"_s + name + u".svg"_s;
    const bool installed = !QStandardPaths::locate(QStandardPaths::GenericDataLocation, file).isEmpty();
    return installed ? name : QString();
}

} // namespace tarnwick
