// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/EventSource.h"

#include <QList>
#include <gtest/gtest.h>

#include <functional>

namespace tarnwick {

/// What a control that tracks the mouse relies on.
class EventSourceContract
{
public:
    struct Subject
    {
        EventSource& source;
        /// The events of mouse buttons that come, in this order, while the control waits.
        std::function<void(const QList<Event::Type>& types)> come;
        /// The window goes away while the control waits.
        std::function<void()> windowGoes;
    };

    explicit EventSourceContract(Subject subject) : _subject(std::move(subject)) {}

    void run()
    {
        using Type = Event::Type;
        struct Row
        {
            const char* sentence;
            QList<Type> come;
            QList<Type> waitedFor;
            Type given;
        };
        const Row rows[] = {
            {"the one that is waited for", {Type::LeftMouseUp}, {Type::LeftMouseUp}, Type::LeftMouseUp},
            {"any of several",
             {Type::RightMouseDown},
             {Type::LeftMouseUp, Type::RightMouseDown},
             Type::RightMouseDown},
            {"what nobody waits for passes by",
             {Type::LeftMouseDown, Type::RightMouseDown, Type::LeftMouseUp},
             {Type::LeftMouseUp},
             Type::LeftMouseUp},
            {"and is gone when it is waited for later",
             {Type::RightMouseUp},
             {Type::LeftMouseDown, Type::RightMouseDown, Type::RightMouseUp},
             Type::RightMouseUp},
            {"it takes as long as it takes",
             QList<Type>(50, Type::LeftMouseDown) << Type::LeftMouseUp,
             {Type::LeftMouseUp},
             Type::LeftMouseUp},
        };
        for (const Row& row : rows) {
            _subject.come(row.come);
            const auto event = _next(row.waitedFor);
            ASSERT_TRUE(event) << row.sentence;
            EXPECT_EQ(event->type, row.given) << row.sentence;
        }
        _subject.windowGoes();
        EXPECT_FALSE(_next({Type::LeftMouseUp})) << "there is nothing more to wait for";
    }

private:
    [[nodiscard]] std::optional<Event> _next(const QList<Event::Type>& types)
    {
        quint64 mask = 0;
        for (const Event::Type type : types)
            mask |= quint64(1) << static_cast<quint32>(type);
        return _subject.source.nextEventMatchingMask(mask);
    }

    Subject _subject;
};

} // namespace tarnwick
