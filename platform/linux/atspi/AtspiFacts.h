// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/BusReference.h"

#include <QList>
#include <QString>

#include <optional>

namespace tarnwick {

/// What has been read of one accessible object. What was not asked for, has not come or could not be
/// understood is missing.
struct AtspiFacts
{
    BusReference reference = {};
    std::optional<QString> name = {};
    std::optional<quint32> role = {};
    std::optional<quint64> states = {};
    std::optional<QString> keyBinding = {};
    std::optional<bool> hasArea = {};    ///< whether it takes room, now or once its menu opens
    std::optional<QString> toolkit = {}; ///< of an application's root only
    std::optional<int> childCount = {};
    std::optional<BusReference> firstChild = {}; ///< empty when there is none
    std::optional<QList<BusReference>> children = {};
    std::optional<qint64> processIdentifier = {}; ///< of the owner of the reference's service
};

} // namespace tarnwick
