// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/elements/LinuxElement.h"
#include "platform/linux/elements/LinuxReading.h"

namespace tarnwick {

/// A window of the desktop. Everything is read from the X server when asked; places are in the display
/// system's space, as those of Screens.
class WindowElement final : public LinuxElement
{
public:
    WindowElement(LinuxReading& reading, const X11Window& window) : _reading(reading), _window(window) {}
    /// As an attribute's value.
    [[nodiscard]] static QVariant make(LinuxReading& reading, const X11Window& window);

    [[nodiscard]] QStringList attributeNames() const override;
    [[nodiscard]] std::optional<QVariant> value(const QString& attribute) const override;
    [[nodiscard]] std::optional<qint64> processIdentifier() const override
    {
        return _window.processIdentifier;
    }
    [[nodiscard]] bool isSettable(const QString& attribute) const override;
    bool setValue(const QString& attribute, const QVariant& value) const override;

protected:
    [[nodiscard]] QByteArray identity() const override;

private:
    [[nodiscard]] QString _roleDescription() const;
    [[nodiscard]] bool _isMain() const;

    LinuxReading& _reading;
    X11Window _window;
};

} // namespace tarnwick
