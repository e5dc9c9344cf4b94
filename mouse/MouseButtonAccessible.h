// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

namespace tarnwick {

class TWMouseButtonIdentifier;

/// A mouse-button control for assistive programs: a text that tells which button is learned and how to teach
/// another.
class MouseButtonAccessible final : public QAccessibleWidget
{
public:
    explicit MouseButtonAccessible(TWMouseButtonIdentifier* control);

    /// From now on every mouse-button control is presented like this. May be called any number of times.
    static void install();

    [[nodiscard]] QString text(QAccessible::Text kind) const override;
};

} // namespace tarnwick
