// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Workspace.h"

#include <QList>
#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace tarnwick {

/// What the core relies on of the desktop that the applications run on.
class WorkspaceContract
{
public:
    struct Subject
    {
        Workspace& workspace;
        /// The process identifiers of two applications with windows, neither of which is in front at first.
        qint64 first = 0;
        qint64 second = 0;
        /// Lets the user bring one of them to the front, and returns when everything that follows from it has
        /// happened.
        std::function<void(qint64 processIdentifier)> bringToFront;
        /// The user closes all windows.
        std::function<void()> leaveNothingInFront;
        /// The "AXTitle" of an application.
        std::function<QString(qint64 processIdentifier)> titleOf;
    };

    explicit WorkspaceContract(Subject subject) : _subject(std::move(subject)), _workspace(_subject.workspace)
    {
    }

    void run()
    {
        _checkFront();
        _checkSwitches();
        _checkOpening();
        _checkNothingInFront();
    }

private:
    void _checkFront()
    {
        for (const qint64 application : {_subject.first, _subject.second}) {
            _subject.bringToFront(application);
            EXPECT_EQ(_workspace.activeProcessIdentifier(), application);
            const auto active = _workspace.activeApplication();
            ASSERT_TRUE(active);
            EXPECT_EQ(active->processIdentifier, application);
            EXPECT_EQ(active->name, _subject.titleOf(application));
        }
    }

    void _checkSwitches()
    {
        QList<qint64> told;
        ASSERT_TRUE(_workspace.installAppFrontSwitchedHandler(
            [&] { told.append(_workspace.activeProcessIdentifier().value_or(-1)); }));
        EXPECT_EQ(told, QList<qint64>()) << "what was in front before is no switch";
        QList<qint64> all;
        for (const qint64 application : {_subject.first, _subject.second, _subject.first}) {
            _subject.bringToFront(application);
            all.append(application);
            EXPECT_EQ(told, all) << "once for each, when it is in front";
        }

        int newer = 0;
        ASSERT_TRUE(_workspace.installAppFrontSwitchedHandler([&newer] { ++newer; }));
        _subject.bringToFront(_subject.second);
        EXPECT_EQ(newer, 1);
        EXPECT_EQ(told, all) << "the newest takes it for itself";
        ASSERT_TRUE(_workspace.installAppFrontSwitchedHandler([] {}));
    }

    void _checkOpening()
    {
        for (const QUrl& url : {QUrl(), QUrl(QStringLiteral("http://[no host"))})
            EXPECT_FALSE(_workspace.openURL(url)) << url.errorString().toStdString();
        const auto panes = Workspace::PreferencePanesDirectory;
        EXPECT_EQ(_workspace.searchPathForDirectoriesInDomains(
                      panes, static_cast<Workspace::SearchPathDomainMask>(0), false),
                  QStringList())
            << "in no domain there is none";
    }

    void _checkNothingInFront()
    {
        _subject.leaveNothingInFront();
        EXPECT_FALSE(_workspace.activeProcessIdentifier());
        EXPECT_FALSE(_workspace.activeApplication());
    }

    Subject _subject;
    Workspace& _workspace;
};

} // namespace tarnwick
