// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/FrontApplication.h"
#include "platform/linux/workspace/FrontSwitches.h"

#include <QObject>

#include <functional>
#include <vector>

namespace tarnwick {

/// Announces each switch of the front application, one after the other, from the event loop. A switch while
/// our menu is open closes the menu, and is announced after that. GUI thread only.
class SwitchAnnouncements final : public QObject
{
    Q_OBJECT

public:
    /// `front` must outlive this, and what `ownerOf` uses, too.
    SwitchAnnouncements(FrontApplication& front, FrontSwitches::OwnerOf ownerOf);

    /// Switches count from here on, and `switched` runs at each; from the second time on it only takes the
    /// place of the one before. False when changes are never told.
    [[nodiscard]] bool start(std::function<void()> switched);

    /// Runs `then` from the event loop, once every switch that has happened by now has been announced.
    void afterSwitchesSoFar(std::function<void()> then);

    /// Looks for a switch that nobody has told of, too, by the hint where there is one. Runs `then` once
    /// every switch so far has been announced: at once when there is none to announce.
    void announceFrontThen(std::function<void()> then, const FrontHint& hint = {});

private:
    void _frontChanged(const FrontWindow& front);
    void _announce(const FrontWindow& front);
    void _deliver();
    void _whenNothingIsUndelivered(std::function<void()> then);

    FrontApplication& _front;
    FrontSwitches _switches;
    std::function<void()> _switched;
    int _undelivered = 0;
    std::vector<std::function<void()>> _whenDelivered;
};

} // namespace tarnwick
