// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/SharedPort.h"

#include <QString>
#include <QtGlobal>

#include <functional>
#include <optional>

namespace tarnwick {

/// What a person has to know, or to do, for the hot key or the mouse button to open the menu.
struct TriggerHint
{
    enum class Kind {
        None,        ///< nothing: it is as the settings say
        Granted,     ///< the desktop has given the keys named `text`, which may be others than the recorded
        Asked,       ///< the desktop has not answered yet; it may be asking the person
        Refused,     ///< the desktop gives none
        Taken,       ///< `text` has them
        Line,        ///< `text`, one line or more, has to be put into `place`
        Command,     ///< a key of the desktop has to run the command `text`
        OfHotKey,    ///< of a mouse button: the desktop's settings can have one press the hot key
        Unavailable, ///< it cannot be had on this desktop
    };
    Kind kind = Kind::None;
    QString text = {};
    QString place = {};
    bool works = false; ///< of a line or a command: the menu has been opened by it

    friend bool operator==(const TriggerHint&, const TriggerHint&) = default;
};

/// What there is to say about the hot key and the mouse button on a desktop where a program cannot have them
/// as it likes. There is none on others. GUI thread only.
class TriggerAdvice : public SharedPort<TriggerAdvice>
{
public:
    virtual ~TriggerAdvice() = default;

    /// Of the recorded hot key: a virtual key code and event modifiers (0x100 Command, 0x200 Shift, 0x800
    /// Option, 0x1000 Control).
    [[nodiscard]] virtual TriggerHint hotKeyHint(quint32 keyCode, quint32 modifiers) const = 0;
    /// Of the mouse button with this number; 2 is the middle one.
    [[nodiscard]] virtual TriggerHint mouseButtonHint(quint64 button) const = 0;
    /// Who else has that combination, as a person knows him; nothing when nobody has, or nobody can tell.
    [[nodiscard]] virtual std::optional<QString> ownerOf(quint32 keyCode, quint32 modifiers) const = 0;

    /// `changed` runs whenever a hint may have become another one. Never removed.
    virtual void addChangeObserver(std::function<void()> changed) = 0;
};

} // namespace tarnwick
