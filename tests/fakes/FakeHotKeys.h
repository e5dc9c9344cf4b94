// SPDX-License-Identifier: MIT
#pragma once

#include "app/HotKeys.h"
#include "tests/fakes/Journal.h"

#include <QList>
#include <QMap>

#include <algorithm>
#include <utility>

namespace tarnwick {

/// A keyboard: it holds the registered combinations, and the test presses them.
class FakeHotKeys final : public HotKeys
{
public:
    struct HotKey
    {
        quint32 keyCode = 0;
        quint32 modifiers = 0;
        EventHotKeyID id;
        quint32 options = 0;
    };

    QList<std::pair<quint32, quint32>> takenElsewhere; ///< lever: key code and modifiers that others hold
    QMap<EventHotKeyRef, HotKey> registered;           ///< look: what is held now
    QList<EventHotKeyRef> unregistered;                ///< look: every attempt, failed ones included
    int handlers = 0;                                  ///< look: how many handlers were installed
    int handlerRuns = 0;                               ///< look: how many handlers have run
    Journal* journal = nullptr; ///< "install handler", "register <code> <modifiers>", "unregister"

    /// Lever: the user presses a combination. False when nobody has registered it.
    bool press(quint32 keyCode, quint32 modifiers)
    {
        if (!holds(keyCode, modifiers))
            return false;
        const auto handlersNow = _handlers;
        for (auto each = handlersNow.crbegin(); each != handlersNow.crend(); ++each) {
            ++handlerRuns;
            if ((*each)() == noErr)
                break;
        }
        return true;
    }

    /// Look: whether the combination is held now.
    [[nodiscard]] bool holds(quint32 keyCode, quint32 modifiers) const
    {
        return std::any_of(registered.cbegin(), registered.cend(), [&](const HotKey& each) {
            return each.keyCode == keyCode && each.modifiers == modifiers;
        });
    }

    void installEventHandler(std::function<qint32()> handler) override
    {
        ++handlers;
        note(journal, QStringLiteral("install handler"));
        _handlers.append(std::move(handler));
    }

    [[nodiscard]] std::optional<EventHotKeyRef>
    registerEventHotKey(quint32 keyCode, quint32 modifiers, EventHotKeyID id, quint32 options) override
    {
        note(journal, QStringLiteral("register %1 0x%2").arg(keyCode).arg(modifiers, 0, 16));
        if (keyCode > 127 || takenElsewhere.contains(std::pair(keyCode, modifiers)))
            return std::nullopt;
        registered.insert(++_lastRef, {keyCode, modifiers, id, options});
        return _lastRef;
    }

    bool unregisterEventHotKey(EventHotKeyRef hotKey) override
    {
        unregistered.append(hotKey);
        note(journal, QStringLiteral("unregister"));
        return registered.remove(hotKey) > 0;
    }

private:
    QList<std::function<qint32()>> _handlers;
    EventHotKeyRef _lastRef = 0;
};

} // namespace tarnwick
