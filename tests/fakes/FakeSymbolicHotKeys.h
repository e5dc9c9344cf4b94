// SPDX-License-Identifier: MIT
#pragma once

#include "shortcut/SymbolicHotKeys.h"
#include "tests/fakes/Journal.h"

#include <QSet>

#include <utility>

namespace tarnwick {

/// A desktop with shortcuts of its own.
class FakeSymbolicHotKeys final : public SymbolicHotKeys
{
public:
    QList<SymbolicHotKey> hotKeys;                ///< lever
    bool unreadable = false;                      ///< lever: the list cannot be read
    bool refusesPush = false;                     ///< lever: nothing can be switched off
    QSet<ModeToken> pushed;                       ///< look: pushes that were not popped
    int pushes = 0;                               ///< look
    int pops = 0;                                 ///< look: of pushes that were still there
    QList<quint32> pushOptions;                   ///< look
    QList<std::pair<qint64, quint32>> candidates; ///< look: the combinations that were asked about
    Journal* journal = nullptr;                   ///< "push", "pop", "hot keys"

    [[nodiscard]] std::optional<QList<SymbolicHotKey>>
    copySymbolicHotKeys(qint64 candidateKeyCode, quint32 candidateModifiers) override
    {
        note(journal, QStringLiteral("hot keys"));
        candidates.append({candidateKeyCode, candidateModifiers});
        return unreadable ? std::nullopt : std::optional(hotKeys);
    }

    [[nodiscard]] ModeToken pushSymbolicHotKeyMode(quint32 options) override
    {
        note(journal, QStringLiteral("push"));
        pushOptions.append(options);
        if (refusesPush)
            return 0;
        ++pushes;
        pushed.insert(++_lastToken);
        return _lastToken;
    }

    void popSymbolicHotKeyMode(ModeToken token) override
    {
        note(journal, QStringLiteral("pop"));
        pops += pushed.remove(token);
    }

private:
    ModeToken _lastToken = 0;
};

} // namespace tarnwick
