// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace tarnwick {

/// What was chosen from searches while the program runs. It is never written anywhere.
class ChosenBefore
{
public:
    /// What was chosen longest ago is forgotten beyond this number.
    static constexpr qsizetype Most = 1000;

    /// `path`: the titles down to the entry, its own last.
    void note(const QString& application, const QStringList& path);
    /// Greater for what was chosen later; 0 when it was not chosen, or is forgotten.
    [[nodiscard]] quint32 when(const QString& application, const QStringList& path) const;

private:
    QHash<QStringList, quint32> _times; ///< of the application and the path
    quint32 _last = 0;
};

} // namespace tarnwick
