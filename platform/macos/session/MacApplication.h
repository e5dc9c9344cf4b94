// SPDX-License-Identifier: MIT
#pragma once

#include "platform/qt/application/QtApplication.h"

namespace tarnwick {

/// The process as an application of macOS: it is a bundle, and its windows come to the front though another
/// application is active.
class MacApplication final : public QtApplication
{
    Q_OBJECT

public:
    explicit MacApplication(QtEventConverter converter);

    void terminate(ActionSender* sender) override;
    void activateIgnoringOtherApps(bool ignoringOtherApps) override;
    [[nodiscard]] QString bundlePath() const override;
    [[nodiscard]] QString pathForResourceOfType(const QString& name, const QString& type) const override;

    bool eventFilter(QObject* receiver, QEvent* event) override;
};

} // namespace tarnwick
