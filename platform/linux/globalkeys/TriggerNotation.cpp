// SPDX-License-Identifier: MIT
#include "platform/linux/globalkeys/TriggerNotation.h"

#include "platform/linux/xdg/DesktopNames.h"

#include <QStringList>

#include <iterator>

using namespace Qt::StringLiterals;

namespace tarnwick::trigger_notation {

namespace {

QString commandOf(const QString& action)
{
    return u"gapplication action "_s + desktop_names::BusName + u' ' + action;
}

/// What the four modifiers are called.
struct ModifierNames
{
    QLatin1StringView super, control, alt, shift;
};

QStringList modifiersOf(const TriggerKey& key, const ModifierNames& names)
{
    QStringList held;
    if (key.super)
        held.append(names.super);
    if (key.control)
        held.append(names.control);
    if (key.alt)
        held.append(names.alt);
    if (key.shift)
        held.append(names.shift);
    return held;
}

QString chord(const TriggerKey& key, const ModifierNames& names, QLatin1StringView between,
              const QString& name)
{
    return (modifiersOf(key, names) << name).join(between);
}

/// Whether only the place names the key, whatever the layout and the lock of the keypad.
bool goesByPlace(const TriggerKey& key)
{
    return key.isOnKeypad || !key.typesLatin;
}

/// A command as a list of quoted words.
QString quotedWords(const QString& command)
{
    return u'"' + command.split(u' ').join(u"\" \""_s) + u'"';
}

QString swayLine(const TriggerKey& key)
{
    const ModifierNames names{"Mod4"_L1, "Control"_L1, "Mod1"_L1, "Shift"_L1};
    return goesByPlace(key) ? u"bindcode "_s + chord(key, names, "+"_L1, QString::number(key.code))
                            : u"bindsym "_s + chord(key, names, "+"_L1, key.keysym);
}

/// It knows keys by name only: the digits of the keypad are bound while Num Lock is on.
QString labwcLine(const TriggerKey& key)
{
    const ModifierNames names{"W"_L1, "C"_L1, "A"_L1, "S"_L1};
    return u"<keybind key=\"%1\"><action name=\"Execute\" command=\"%2\"/></keybind>"_s.arg(
        chord(key, names, "-"_L1, key.keysym), popUpCommand());
}

QString niriLine(const TriggerKey& key)
{
    const ModifierNames names{"Super"_L1, "Ctrl"_L1, "Alt"_L1, "Shift"_L1};
    return u"%1 { spawn %2; }"_s.arg(chord(key, names, "+"_L1, key.keysym), quotedWords(popUpCommand()));
}

QString riverLine(const TriggerKey& key)
{
    const ModifierNames names{"Super"_L1, "Control"_L1, "Alt"_L1, "Shift"_L1};
    const QStringList held = modifiersOf(key, names);
    return u"riverctl map normal %1 %2 spawn '%3'"_s.arg(held.isEmpty() ? u"None"_s : held.join(u'+'),
                                                         key.keysym, popUpCommand());
}

QString hyprlandLine(const TriggerKey& key)
{
    const ModifierNames names{"SUPER"_L1, "CTRL"_L1, "ALT"_L1, "SHIFT"_L1};
    const QString name = goesByPlace(key) ? u"code:%1"_s.arg(key.code) : key.keysym;
    return u"bind = %1, %2, exec, %3"_s.arg(modifiersOf(key, names).join(u' '), name, popUpCommand());
}

QString wayfireLines(const QString& binding, QLatin1StringView name, const QString& command)
{
    return u"binding_%1 = %2\ncommand_%1 = %3"_s.arg(name, binding, command);
}

QString wayfireLine(const TriggerKey& key)
{
    const ModifierNames names{"<super>"_L1, "<ctrl>"_L1, "<alt>"_L1, "<shift>"_L1};
    return wayfireLines(chord(key, names, " "_L1, u"KEY_"_s + key.evdevName), "tarnwick"_L1, popUpCommand());
}

/// A mouse button by the names that it has; an empty one where it has none.
struct Button
{
    QLatin1StringView sway, labwc, niri, evdev;
    int code; ///< evdev code
};

constexpr Button Buttons[] = {
    {"button2"_L1, "Middle"_L1, "MouseMiddle"_L1, "BTN_MIDDLE"_L1, 274},
    {"button8"_L1, "Side"_L1, "MouseBack"_L1, "BTN_SIDE"_L1, 275},
    {"button9"_L1, "Extra"_L1, "MouseForward"_L1, "BTN_EXTRA"_L1, 276},
    {"BTN_FORWARD"_L1, "Forward"_L1, {}, "BTN_FORWARD"_L1, 277},
    {"BTN_BACK"_L1, "Back"_L1, {}, "BTN_BACK"_L1, 278},
    {"BTN_TASK"_L1, "Task"_L1, {}, "BTN_TASK"_L1, 279},
};
constexpr quint64 FirstButton = 2;

} // namespace

QString popUpCommand()
{
    return commandOf(desktop_names::PopUpAction);
}

QString portalTrigger(const TriggerKey& key)
{
    return chord(key, {"LOGO"_L1, "CTRL"_L1, "ALT"_L1, "SHIFT"_L1}, "+"_L1, key.keysym);
}

std::optional<Line> lineFor(Compositor compositor, const TriggerKey& key)
{
    switch (compositor) {
    case Compositor::Sway:
        return Line{swayLine(key) + u" exec "_s + popUpCommand(), u"~/.config/sway/config"_s};
    case Compositor::Labwc:
        return Line{labwcLine(key), u"~/.config/labwc/rc.xml, <keyboard>"_s};
    case Compositor::Niri:
        return Line{niriLine(key), u"~/.config/niri/config.kdl, binds { }"_s};
    case Compositor::River:
        return Line{riverLine(key), u"~/.config/river/init"_s};
    case Compositor::Hyprland:
        return Line{hyprlandLine(key), u"~/.config/hypr/hyprland.conf"_s};
    case Compositor::Wayfire:
        return Line{wayfireLine(key), u"~/.config/wayfire.ini, [command]"_s};
    case Compositor::Unknown:
    case Compositor::KWin:
    case Compositor::Mutter:
        break;
    }
    return std::nullopt;
}

std::optional<Line> lineForButton(Compositor compositor, quint64 number)
{
    if (number < FirstButton || number - FirstButton >= std::size(Buttons))
        return std::nullopt;
    const QString command = commandOf(desktop_names::PopUpByPointerAction);
    const Button& button = Buttons[number - FirstButton];
    switch (compositor) {
    case Compositor::Sway:
        return Line{u"bindsym --whole-window %1 exec %2"_s.arg(button.sway, command),
                    u"~/.config/sway/config"_s};
    case Compositor::Labwc:
        return Line{
            u"<context name=\"All\"><mousebind button=\"%1\" action=\"Press\">"
            "<action name=\"Execute\" command=\"%2\"/></mousebind></context>"_s.arg(button.labwc, command),
            u"~/.config/labwc/rc.xml, <mouse>"_s};
    case Compositor::Niri:
        if (button.niri.isEmpty())
            return std::nullopt;
        return Line{u"%1 { spawn %2; }"_s.arg(button.niri, quotedWords(command)),
                    u"~/.config/niri/config.kdl, binds { }"_s};
    case Compositor::River:
        return Line{u"riverctl map-pointer normal None %1 spawn '%2'"_s.arg(button.evdev, command),
                    u"~/.config/river/init"_s};
    case Compositor::Hyprland:
        return Line{u"bind = , mouse:%1, exec, %2"_s.arg(button.code).arg(command),
                    u"~/.config/hypr/hyprland.conf"_s};
    case Compositor::Wayfire:
        return Line{wayfireLines(button.evdev, "tarnwick_button"_L1, command),
                    u"~/.config/wayfire.ini, [command]"_s};
    case Compositor::Unknown:
    case Compositor::KWin:
    case Compositor::Mutter:
        break;
    }
    return std::nullopt;
}

} // namespace tarnwick::trigger_notation
