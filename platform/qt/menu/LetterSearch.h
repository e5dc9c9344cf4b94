// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <optional>

namespace tarnwick {

/// Finds menu entries by the letters that their titles begin with. Letters that follow each other quickly are
/// one beginning; the same letter again goes on to the next entry with it. Case does not count.
class LetterSearch
{
public:
    /// Letters further apart than this begin anew.
    static constexpr qint64 PauseMilliseconds = 1000;

    /// The entry to move to after `letter` was typed at `now` (milliseconds on any steady clock). Entries
    /// that can't be chosen have an empty title. `current`: the entry where the highlight is, −1 for none.
    /// Nothing when no title begins so.
    [[nodiscard]] std::optional<int> type(const QString& letter, qint64 now, const QStringList& titles,
                                          int current);

    /// Whether a blank typed now would belong to a beginning.
    [[nodiscard]] bool isUnderWay(qint64 now) const;

    void forget() { _typed.clear(); }

private:
    QString _typed;
    qint64 _lastTime = 0;
};

} // namespace tarnwick
