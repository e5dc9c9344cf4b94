// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Workspace.h"
#include "tests/fakes/Journal.h"

#include <QList>
#include <QMap>

#include <utility>

namespace tarnwick {

/// A desktop that the test plays. Opens nothing.
class FakeWorkspace final : public Workspace
{
public:
    std::optional<ActiveApplication> active; ///< lever: the application in front
    bool tellsSwitches = true;               ///< lever: whether switches can be observed at all
    bool opens = true;                       ///< lever: whether there is a program for what is opened
    QStringList preferencePanes;             ///< lever: the directories of settings panes
    bool systemMenu = false;                 ///< lever: menu bars begin with a menu of the system
    bool reduceMotion = false;               ///< lever: the user wants nothing to move without need
    bool otherBuildSeesMore = false;         ///< lever
    QString popUpCommand;                    ///< lever: the session hides what other applications do
    QList<std::pair<QWidget*, quint32>> collectionBehaviors; ///< look: window and behaviour, in order
    QList<QUrl> opened;                                      ///< look: what was asked to be opened, in order
    Journal* journal = nullptr;                              ///< "ask name"

    /// Lever: the user brings an application to the front; the observer hears of it now.
    void switchTo(const QString& name, std::optional<qint64> processIdentifier)
    {
        active = ActiveApplication{name, processIdentifier};
        announceSwitch();
    }

    /// Lever: the observer hears of a switch.
    void announceSwitch()
    {
        if (const auto handler = _handler)
            handler();
    }

    [[nodiscard]] std::optional<ActiveApplication> activeApplication() const override
    {
        note(journal, QStringLiteral("ask name"));
        return active;
    }

    [[nodiscard]] std::optional<qint64> activeProcessIdentifier() const override
    {
        return active ? active->processIdentifier : std::nullopt;
    }

    [[nodiscard]] bool installAppFrontSwitchedHandler(std::function<void()> switched) override
    {
        if (tellsSwitches)
            _handler = std::move(switched);
        return tellsSwitches;
    }

    bool openURL(const QUrl& url) override
    {
        opened.append(url);
        return opens && url.isValid() && !url.isEmpty();
    }

    [[nodiscard]] QStringList searchPathForDirectoriesInDomains(SearchPathDirectory directory,
                                                                SearchPathDomainMask domains,
                                                                bool /*expandTilde*/) const override
    {
        return directory == PreferencePanesDirectory && domains == SystemDomainMask ? preferencePanes
                                                                                    : QStringList();
    }

    void setCollectionBehavior(QWidget& window, CollectionBehavior behavior) override
    {
        collectionBehaviors.append({&window, behavior});
    }

    [[nodiscard]] QString commandThatPopsUp() const override { return popUpCommand; }
    [[nodiscard]] bool anotherBuildSeesMore() const override { return otherBuildSeesMore; }
    [[nodiscard]] bool menuBarsHaveSystemMenu() const override { return systemMenu; }
    [[nodiscard]] bool accessibilityDisplayShouldReduceMotion() const override { return reduceMotion; }

private:
    std::function<void()> _handler;
};

} // namespace tarnwick
