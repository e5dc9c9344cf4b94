// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/elements/LinuxElement.h"
#include "platform/linux/elements/LinuxReading.h"

namespace tarnwick {

class SystemWideElement final : public LinuxElement
{
public:
    explicit SystemWideElement(LinuxReading& reading) : _reading(reading) {}

    [[nodiscard]] QStringList attributeNames() const override;
    [[nodiscard]] std::optional<QVariant> value(const QString& attribute) const override;
    [[nodiscard]] std::optional<qint64> processIdentifier() const override { return std::nullopt; }

protected:
    [[nodiscard]] QByteArray identity() const override { return {}; }

private:
    LinuxReading& _reading;
};

} // namespace tarnwick
