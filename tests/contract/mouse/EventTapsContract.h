// SPDX-License-Identifier: MIT
#pragma once

#include "mouse/EventTaps.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace tarnwick {

/// What the core relies on of event taps. `press` lets the user press and release an extra mouse button, and
/// returns when everything that follows from it has happened.
inline void eventTapsContract(EventTaps& taps, const std::function<void()>& press)
{
    QStringList calls;
    const auto create = [&](const QString& name, quint64 events = 0x2000000) {
        return taps.create(EventTaps::AnnotatedSessionEventTap, EventTaps::HeadInsertEventTap,
                           EventTaps::EventTapOptionDefault, events,
                           [&calls, name](quint32 type, const TappedEvent* event) {
                               calls.append(name + QString::number(type) +
                                            (event ? QStringLiteral(" event") : QStringLiteral(" nothing")));
                               return event;
                           });
    };
    const EventTapRef older = create(QStringLiteral("older "));
    ASSERT_NE(older, 0U);
    press();
    EXPECT_TRUE(calls.isEmpty()) << "neither scheduled nor enabled";
    taps.addSourceToMainRunLoop(older);
    press();
    EXPECT_TRUE(calls.isEmpty()) << "not enabled";
    taps.enable(older, true);
    press();
    EXPECT_EQ(calls, QStringList{QStringLiteral("older 25 event")});

    const EventTapRef newer = create(QStringLiteral("newer "));
    EXPECT_NE(newer, older);
    taps.enable(newer, true);
    calls.clear();
    press();
    EXPECT_EQ(calls, QStringList{QStringLiteral("older 25 event")}) << "not scheduled";
    taps.addSourceToMainRunLoop(newer);
    calls.clear();
    press();
    EXPECT_EQ(calls, (QStringList{QStringLiteral("newer 25 event"), QStringLiteral("older 25 event")}))
        << "the newest stands at the head";

    const EventTapRef deaf = create(QStringLiteral("deaf "), 0);
    taps.addSourceToMainRunLoop(deaf);
    taps.enable(deaf, true);
    taps.enable(older, false);
    calls.clear();
    press();
    EXPECT_EQ(calls, QStringList{QStringLiteral("newer 25 event")})
        << "neither a tap that is switched off nor one for other events";

    taps.enable(older, true);
    taps.release(newer);
    taps.enable(newer, true);
    calls.clear();
    press();
    EXPECT_EQ(calls, QStringList{QStringLiteral("older 25 event")}) << "never after the release";
    taps.release(older);
    taps.release(deaf);
    EXPECT_GT(create(QStringLiteral("next ")), deaf) << "a name is never used twice";
}

} // namespace tarnwick
