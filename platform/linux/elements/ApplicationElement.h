// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/elements/LinuxElement.h"
#include "platform/linux/elements/LinuxReading.h"

namespace tarnwick {

/// An application; without a process, the one that is in front when none is.
class ApplicationElement final : public LinuxElement
{
public:
    ApplicationElement(LinuxReading& reading, std::optional<qint64> processIdentifier);

    [[nodiscard]] QStringList attributeNames() const override;
    [[nodiscard]] std::optional<QVariant> value(const QString& attribute) const override;
    [[nodiscard]] std::optional<qint64> processIdentifier() const override { return _processIdentifier; }

protected:
    [[nodiscard]] QByteArray identity() const override;

private:
    [[nodiscard]] bool _exists() const;
    [[nodiscard]] bool _isInFront() const;
    /// The active one, else the one opened last; none when there is none.
    [[nodiscard]] FrontWindow _focusedWindow() const;
    /// By their places in the accessibility tree; to be asked only where the X server knows none.
    [[nodiscard]] QList<BusReference> _nativeWindows() const;
    [[nodiscard]] QVariant _element(const FrontWindow& window) const;
    [[nodiscard]] std::optional<QVariant> _menuBar() const;
    [[nodiscard]] QVariantList _windows() const;

    LinuxReading& _reading;
    std::optional<qint64> _processIdentifier;
};

} // namespace tarnwick
