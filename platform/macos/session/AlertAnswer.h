// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Alerts.h"

#include <QtGlobal>

#include <functional>

namespace tarnwick {

/// What a modal session answers that goes on: somebody has left its loop, the user has not answered.
inline constexpr qint64 ModalSessionContinues = -1002;

/// Runs `runModal`, which shows an alert and gives the system's code for its answer, until it is answered or
/// the program ends; at least once.
[[nodiscard]] qint64 modalAnswer(const std::function<qint64()>& runModal);

/// The answer of `alert` for the system's code; one that was closed without a button answers as its second,
/// or as its only one.
[[nodiscard]] int answerOf(const Alert& alert, qint64 nativeCode);

} // namespace tarnwick
