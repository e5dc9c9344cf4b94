// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>

#include <functional>

class QCheckBox;
class QObject;
class QSpinBox;

namespace tarnwick {

/// From now on, as long as it lives, `control` shows the setting and follows it: `show` runs at once and
/// after each change.
void bindToDefaults(QObject& control, const QString& key, std::function<void(const QVariant& value)> show);

/// The same, and what the user sets is stored: as a boolean, or as a 32-bit number. `switched` runs once the
/// user's choice is stored. A stored number outside of the spin box's range shows as the nearest one and
/// stays stored as it is.
void bindCheckBox(QCheckBox& box, const QString& key, std::function<void()> switched = {});
void bindSpinBox(QSpinBox& box, const QString& key);

} // namespace tarnwick
