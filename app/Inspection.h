// SPDX-License-Identifier: MIT
#pragma once

#include "app/Desktop.h"
#include "ax/Accessibility.h"
#include "foundation/Application.h"
#include "foundation/Clock.h"
#include "foundation/Fonts.h"
#include "foundation/Screens.h"
#include "foundation/Workspace.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

namespace tarnwick {

/// The adapters that reading menus needs, and no more: with these a program writes no settings, claims no bus
/// name and grabs no key.
struct Inspection
{
    std::unique_ptr<DesktopSession> session;
    std::unique_ptr<Application> application;
    std::unique_ptr<Clock> clock;
    std::unique_ptr<Fonts> fonts;
    std::unique_ptr<Screens> screens;
    std::unique_ptr<Accessibility> accessibility;
    std::unique_ptr<Workspace> workspace;

    /// A key equivalent with its modifier mask, in the desktop's way of writing; empty when there is none.
    std::function<QString(const QString& keyEquivalent, quint64 modifierMask)> keyEquivalentText;

    /// Looks for what is in front now, where nobody has told of it.
    std::function<void()> lookAtFront = [] {};

    /// From where the menus of an application can be read, which of it is read, and what could be switched
    /// on, for a person. Without a process, of the one in front. Empty where there is nothing to choose
    /// between.
    std::function<QStringList(std::optional<qint64> processIdentifier)> menuSources =
        [](std::optional<qint64> /*processIdentifier*/) { return QStringList(); };

    /// Makes each adapter the one that its port's shared() gives.
    void makeShared() const;
};

/// Opens what is needed of the desktop that the program was built for. The arguments are main's and must
/// outlive it.
[[nodiscard]] Inspection openInspection(int& argc, char** argv);

} // namespace tarnwick
