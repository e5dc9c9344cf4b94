// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/EventSource.h"
#include "platform/qt/application/QtEventConverter.h"

namespace tarnwick {

/// Takes events out of Qt's delivery while a control tracks.
class QtEventSource final : public EventSource
{
public:
    explicit QtEventSource(QtEventConverter converter);
    [[nodiscard]] std::optional<Event> nextEventMatchingMask(quint64 mask) override;

private:
    QtEventConverter _converter;
};

} // namespace tarnwick
