// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

namespace tarnwick {

/// Marks whose strings table is "ShortcutRecorder": its tr() looks a text up there. The English text is the
/// key and what shows when the table has no other.
class SRDummyClass
{
    Q_DECLARE_TR_FUNCTIONS(ShortcutRecorder)
};

} // namespace tarnwick
