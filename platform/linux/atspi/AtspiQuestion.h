// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AtspiFacts.h"

#include <systemd/sd-bus.h>

namespace tarnwick {

/// What an accessible object can be asked. Each question answers one field of AtspiFacts.
enum class AtspiQuestion {
    Name,
    Role,
    States,
    KeyBinding,
    Area,
    Toolkit,
    ChildCount,
    FirstChild,
    Children,
    ProcessIdentifier
};

/// How a question is put, and where its answer goes.
struct AtspiQuestionForm
{
    enum class Kind {
        Property,        ///< `member` is the name of a property
        Call,            ///< without arguments
        CallOfFirst,     ///< about the first of several: of the actions, of the children
        CallOnTheScreen, ///< in coordinates of the screen
        CallToTheBus     ///< the bus itself is asked, about the program that the object belongs to
    };

    Kind kind;
    const char* interface;
    const char* member;
    /// Stores what the reply says, which may be anything: what cannot be read is missing.
    void (*store)(sd_bus_message* reply, AtspiFacts& facts);
};

[[nodiscard]] const AtspiQuestionForm& formOf(AtspiQuestion question);

} // namespace tarnwick
