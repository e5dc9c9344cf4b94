// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace tarnwick {

/// What several keys one after another type together, as dead keys and the Compose key do. Called with the
/// system's symbol for each key that is pressed where text is typed; nothing: the key means what it does by
/// itself. An empty text: more keys are to come.
using KeyComposition = std::function<std::optional<QString>(quint32 keysym)>;

} // namespace tarnwick
