// SPDX-License-Identifier: MIT
#include "platform/linux/globalkeys/Compositor.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

struct Sign
{
    const char* name;
    Compositor compositor;
};

/// Variables that a compositor sets for what it starts.
constexpr Sign Variables[] = {
    {"SWAYSOCK", Compositor::Sway},          {"LABWC_PID", Compositor::Labwc},
    {"NIRI_SOCKET", Compositor::Niri},       {"HYPRLAND_INSTANCE_SIGNATURE", Compositor::Hyprland},
    {"WAYFIRE_SOCKET", Compositor::Wayfire},
};

/// What sessions call themselves, in small letters.
constexpr Sign Desktops[] = {
    {"sway", Compositor::Sway},   {"labwc", Compositor::Labwc},       {"niri", Compositor::Niri},
    {"river", Compositor::River}, {"hyprland", Compositor::Hyprland}, {"wayfire", Compositor::Wayfire},
    {"kde", Compositor::KWin},    {"gnome", Compositor::Mutter},
};

} // namespace

Compositor compositorOf(const std::function<QString(const char* name)>& variable)
{
    // The variables go first: one compositor may run in the session of another.
    for (const Sign& sign : Variables) {
        if (!variable(sign.name).isEmpty())
            return sign.compositor;
    }
    const QStringList desktops = variable("XDG_CURRENT_DESKTOP").toLower().split(u':');
    for (const QString& desktop : desktops) {
        for (const Sign& sign : Desktops) {
            if (desktop == QLatin1StringView(sign.name))
                return sign.compositor;
        }
    }
    return Compositor::Unknown;
}

Compositor compositorOfSession()
{
    return compositorOf([](const char* name) { return qEnvironmentVariable(name); });
}

} // namespace tarnwick
