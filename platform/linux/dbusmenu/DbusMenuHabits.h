// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/dbusmenu/DbusMenuPlace.h"

#include <QString>

namespace tarnwick {

/// What is known of an exporter by where it exports. Of others the protocol is believed, and nothing is
/// tried.
struct DbusMenuHabits
{
    /// Takes "AboutToShow" as what it is, a word ahead: makes a menu up to date then, and shows nothing.
    /// It is told at once that the menu is closed again: FeatherPad greys entries while their menu is open
    /// only, so that their shortcuts work.
    bool isToldOfOpening = false;
    /// Makes an underscore of the first ampersand of a label, and leaves all that follows and all underscores
    /// as they are.
    bool leavesUnderscores = false;

    [[nodiscard]] static DbusMenuHabits of(const DbusMenuPlace& place);

    /// What is seen of a label. Where underscores come as they are, one that begins a word counts as the
    /// mnemonic, or else the only one.
    [[nodiscard]] QString titleOf(const QString& label) const;
};

} // namespace tarnwick
