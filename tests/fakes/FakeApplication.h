// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Application.h"
#include "foundation/ApplicationDelegate.h"
#include "tests/fakes/Journal.h"

#include <QList>
#include <QMap>

#include <utility>

namespace tarnwick {

/// The process as the core sees it. It ends only in name.
class FakeApplication final : public Application
{
public:
    std::shared_ptr<Menu> menuBar;                     ///< lever: what mainMenu() gives
    std::optional<Event> event;                        ///< lever: what currentEvent() gives
    QString bundle = QStringLiteral("/opt/Tarnwick");  ///< lever
    QMap<std::pair<QString, QString>, QString> assets; ///< lever: paths of resources by name and type
    QList<ActionSender*> terminateSenders;             ///< look: who has asked to end
    QList<bool> activations;                           ///< look: the argument of each activation
    int beeps = 0;                                     ///< look
    Journal* journal = nullptr;                        ///< "terminate", "activate"

    void terminate(ActionSender* sender) override
    {
        terminateSenders.append(sender);
        note(journal, QStringLiteral("terminate"));
        if (!_terminating)
            _terminating = _delegate == nullptr || _delegate->applicationShouldTerminate();
    }

    [[nodiscard]] bool terminating() const override { return _terminating; }

    void activateIgnoringOtherApps(bool ignoringOtherApps) override
    {
        activations.append(ignoringOtherApps);
        note(journal, QStringLiteral("activate"));
    }

    [[nodiscard]] std::shared_ptr<Menu> mainMenu() const override { return menuBar; }
    [[nodiscard]] ApplicationDelegate* delegate() const override { return _delegate; }
    void setDelegate(ApplicationDelegate* delegate) override { _delegate = delegate; }
    [[nodiscard]] std::optional<Event> currentEvent() const override { return event; }

    bool sendActionToFrom(const QString& action, ActionTarget* target, ActionSender* sender) override
    {
        if (target == nullptr || !target->respondsTo(action))
            return false;
        target->perform(action, sender);
        return true;
    }

    void beep() override { ++beeps; }
    [[nodiscard]] QString bundlePath() const override { return bundle; }

    [[nodiscard]] QString pathForResourceOfType(const QString& name, const QString& type) const override
    {
        return assets.value({name, type});
    }

private:
    ApplicationDelegate* _delegate = nullptr;
    bool _terminating = false;
};

} // namespace tarnwick
