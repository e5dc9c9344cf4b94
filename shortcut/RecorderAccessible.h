// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

namespace tarnwick {

class SRRecorderControl;

/// A recorder for assistive programs: a button whose name tells the combination and what can be done, and
/// whose one action starts recording.
class RecorderAccessible final : public QAccessibleWidget
{
public:
    explicit RecorderAccessible(SRRecorderControl* control);

    /// From now on every recorder control is presented like this. May be called any number of times.
    static void install();

    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& actionName) override;

private:
    [[nodiscard]] SRRecorderControl& _control() const;
};

} // namespace tarnwick
