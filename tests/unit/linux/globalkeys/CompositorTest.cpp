// SPDX-License-Identifier: MIT
#include "platform/linux/globalkeys/Compositor.h"

#include <QMap>
#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

using Environment = QMap<QByteArray, QString>;

Compositor in(const Environment& environment)
{
    return compositorOf([&](const char* name) { return environment.value(name); });
}

TEST(CompositorOf, tellsByWhatTheCompositorSetsForItsPrograms)
{
    const std::pair<Environment, Compositor> rows[] = {
        {{}, Compositor::Unknown},
        {{{"SWAYSOCK", u"/run/user/1000/sway-ipc.1000.7.sock"_s}}, Compositor::Sway},
        {{{"LABWC_PID", u"7"_s}}, Compositor::Labwc},
        {{{"NIRI_SOCKET", u"/run/user/1000/niri.sock"_s}}, Compositor::Niri},
        {{{"HYPRLAND_INSTANCE_SIGNATURE", u"a_1"_s}}, Compositor::Hyprland},
        {{{"WAYFIRE_SOCKET", u"/tmp/wayfire.sock"_s}}, Compositor::Wayfire},
        {{{"XDG_CURRENT_DESKTOP", u"sway"_s}}, Compositor::Sway},
        {{{"XDG_CURRENT_DESKTOP", u"labwc:wlroots"_s}}, Compositor::Labwc},
        {{{"XDG_CURRENT_DESKTOP", u"niri"_s}}, Compositor::Niri},
        {{{"XDG_CURRENT_DESKTOP", u"river"_s}}, Compositor::River},
        {{{"XDG_CURRENT_DESKTOP", u"Hyprland"_s}}, Compositor::Hyprland},
        {{{"XDG_CURRENT_DESKTOP", u"Wayfire:wlroots"_s}}, Compositor::Wayfire},
        {{{"XDG_CURRENT_DESKTOP", u"KDE"_s}}, Compositor::KWin},
        {{{"XDG_CURRENT_DESKTOP", u"ubuntu:GNOME"_s}}, Compositor::Mutter},
        {{{"XDG_CURRENT_DESKTOP", u"COSMIC"_s}}, Compositor::Unknown},
        {{{"SWAYSOCK", QString()}, {"XDG_CURRENT_DESKTOP", u"river"_s}}, Compositor::River},
        // One in a window of another.
        {{{"SWAYSOCK", u"/tmp/s"_s}, {"XDG_CURRENT_DESKTOP", u"KDE"_s}}, Compositor::Sway},
    };
    for (const auto& [environment, compositor] : rows) {
        EXPECT_EQ(in(environment), compositor) << environment.keys().join(' ').toStdString() << ' '
                                               << environment.value("XDG_CURRENT_DESKTOP").toStdString();
    }
}

} // namespace
