// SPDX-License-Identifier: MIT
#pragma once

#include "prefs/TriggerAdvice.h"

#include <QList>

#include <utility>

namespace tarnwick {

/// A desktop that has something to say about hot keys and mouse buttons.
class FakeTriggerAdvice final : public TriggerAdvice
{
public:
    TriggerHint hotKey;                                    ///< lever
    TriggerHint mouseButton;                               ///< lever
    std::optional<QString> owner;                          ///< lever: of every combination
    mutable QList<std::pair<quint32, quint32>> asked;      ///< look: the hot keys that were asked about
    mutable QList<quint64> askedButtons;                   ///< look
    mutable QList<std::pair<quint32, quint32>> askedOwner; ///< look

    /// Lever: something has become different.
    void change() const
    {
        for (const auto& observer : _observers)
            observer();
    }

    [[nodiscard]] TriggerHint hotKeyHint(quint32 keyCode, quint32 modifiers) const override
    {
        asked.append({keyCode, modifiers});
        return hotKey;
    }
    [[nodiscard]] TriggerHint mouseButtonHint(quint64 button) const override
    {
        askedButtons.append(button);
        return mouseButton;
    }
    [[nodiscard]] std::optional<QString> ownerOf(quint32 keyCode, quint32 modifiers) const override
    {
        askedOwner.append({keyCode, modifiers});
        return owner;
    }
    void addChangeObserver(std::function<void()> changed) override { _observers.append(std::move(changed)); }

private:
    QList<std::function<void()>> _observers;
};

} // namespace tarnwick
