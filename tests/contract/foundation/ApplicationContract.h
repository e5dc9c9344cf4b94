// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Application.h"
#include "foundation/ApplicationDelegate.h"

#include <QDir>
#include <QList>
#include <QStringList>
#include <gtest/gtest.h>

#include <functional>

namespace tarnwick {

/// What the core relies on of the application that it runs as: one that has just been made. `event` lets a
/// window of it get an event of this type, of the mouse's left button.
class ApplicationContract
{
public:
    ApplicationContract(Application& application, std::function<void(Event::Type type)> event)
        : _application(application), _event(std::move(event))
    {
    }

    void run()
    {
        _checkEvents();
        _checkActions();
        _checkPlaces();
        _checkEnd();
    }

private:
    class Delegate final : public ApplicationDelegate
    {
    public:
        bool agrees = false;
        int asked = 0;
        QStringList performed;
        QList<ActionSender*> senders;

        bool applicationShouldTerminate() override
        {
            ++asked;
            return agrees;
        }
        [[nodiscard]] bool respondsTo(const QString& action) const override
        {
            return action == QStringLiteral("known:");
        }
        void perform(const QString& action, ActionSender* sender) override
        {
            performed.append(action);
            senders.append(sender);
        }
    };

    void _checkEvents()
    {
        EXPECT_FALSE(_application.currentEvent()) << "before the first there is none";
        for (const Event::Type type : {Event::Type::LeftMouseDown, Event::Type::LeftMouseUp}) {
            _event(type);
            ASSERT_TRUE(_application.currentEvent());
            EXPECT_EQ(_application.currentEvent()->type, type) << "the last one";
        }
    }

    void _checkActions()
    {
        const QString known = QStringLiteral("known:");
        Delegate target;
        class Sender final : public ActionSender
        {
        } sender;
        EXPECT_TRUE(_application.sendActionToFrom(known, &target, &sender));
        EXPECT_FALSE(_application.sendActionToFrom(QStringLiteral("unknown:"), &target, &sender));
        EXPECT_FALSE(_application.sendActionToFrom(known, nullptr, &sender));
        EXPECT_EQ(target.performed, QStringList{known});
        EXPECT_EQ(target.senders, QList<ActionSender*>{&sender});
    }

    void _checkPlaces()
    {
        EXPECT_TRUE(QDir::isAbsolutePath(_application.bundlePath()));
        EXPECT_EQ(_application.pathForResourceOfType(QStringLiteral("Missing"), QStringLiteral("png")),
                  QString());
        EXPECT_EQ(_application.mainMenu(), _application.mainMenu()) << "one menu bar, or none";
    }

    void _checkEnd()
    {
        const QString terminate = QStringLiteral("terminate:");
        EXPECT_EQ(_application.delegate(), nullptr) << "before the start-up";
        Delegate delegate;
        _application.setDelegate(&delegate);
        EXPECT_EQ(_application.delegate(), &delegate);

        EXPECT_TRUE(_application.respondsTo(terminate));
        EXPECT_FALSE(_application.respondsTo(QStringLiteral("known:")));
        _application.perform(QStringLiteral("known:"), nullptr);
        EXPECT_EQ(delegate.asked, 0);
        _application.perform(terminate, nullptr);
        EXPECT_EQ(delegate.asked, 1);
        EXPECT_FALSE(_application.terminating()) << "the delegate has refused";

        delegate.agrees = true;
        _application.terminate(nullptr);
        EXPECT_EQ(delegate.asked, 2) << "each time, until it agrees";
        EXPECT_TRUE(_application.terminating());
        delegate.agrees = false;
        _application.terminate(nullptr);
        EXPECT_EQ(delegate.asked, 2);
        EXPECT_TRUE(_application.terminating()) << "there is no way back";
        _application.setDelegate(nullptr);
    }

    Application& _application;
    std::function<void(Event::Type)> _event;
};

} // namespace tarnwick
