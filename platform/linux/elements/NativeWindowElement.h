// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/elements/LinuxElement.h"
#include "platform/linux/elements/LinuxReading.h"

namespace tarnwick {

/// A window of a Wayland compositor's own, by its place in the accessibility tree. Where it is on the screen
/// nobody tells, and it cannot be moved.
class NativeWindowElement final : public LinuxElement
{
public:
    /// `window` is a native one.
    NativeWindowElement(LinuxReading& reading, FrontWindow window);

    [[nodiscard]] QStringList attributeNames() const override;
    [[nodiscard]] std::optional<QVariant> value(const QString& attribute) const override;
    [[nodiscard]] std::optional<qint64> processIdentifier() const override
    {
        return _window.processIdentifier;
    }

protected:
    [[nodiscard]] QByteArray identity() const override;

private:
    [[nodiscard]] std::optional<QVariant> _title() const;

    LinuxReading& _reading;
    FrontWindow _window;
};

} // namespace tarnwick
