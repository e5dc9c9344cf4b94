// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/elements/ElementContext.h"
#include "platform/linux/elements/LinuxElement.h"

namespace tarnwick {

class SystemWideElement final : public LinuxElement
{
public:
    explicit SystemWideElement(ElementContext& context) : _context(context) {}

    [[nodiscard]] QStringList attributeNames() const override;
    [[nodiscard]] std::optional<QVariant> value(const QString& attribute) const override;
    [[nodiscard]] std::optional<qint64> processIdentifier() const override { return std::nullopt; }

protected:
    [[nodiscard]] QByteArray identity() const override { return {}; }

private:
    ElementContext& _context;
};

} // namespace tarnwick
