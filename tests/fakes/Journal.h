// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace tarnwick {

/// What happened to several fakes, in one order. A test gives the same journal to those it wants to compare;
/// a fake without one notes nothing.
using Journal = QStringList;

inline void note(Journal* journal, const QString& event)
{
    if (journal)
        journal->append(event);
}

} // namespace tarnwick
