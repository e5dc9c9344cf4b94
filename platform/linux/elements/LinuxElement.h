// SPDX-License-Identifier: MIT
#pragma once

#include "ax/UIElement.h"

#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>

namespace tarnwick {

/// One element of the accessibility tree that the core sees, the same for all toolkits.
class LinuxElement : public UIElement
{
public:
    /// Those that can have a value now.
    [[nodiscard]] virtual QStringList attributeNames() const = 0;
    [[nodiscard]] virtual std::optional<QVariant> value(const QString& attribute) const = 0;
    [[nodiscard]] virtual std::optional<qint64> processIdentifier() const = 0;

    [[nodiscard]] virtual bool isSettable(const QString& attribute) const;
    virtual bool setValue(const QString& attribute, const QVariant& value) const;
    [[nodiscard]] virtual QStringList actionNames() const { return {}; }
    /// False when the element has no such action.
    virtual bool perform(const QString& action) const;

    [[nodiscard]] bool isEqualTo(const UIElement& other) const override;

protected:
    /// Equal for the same element among those of one class.
    [[nodiscard]] virtual QByteArray identity() const = 0;
};

} // namespace tarnwick
