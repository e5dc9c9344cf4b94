// SPDX-License-Identifier: MIT
#pragma once

#include "ax/Accessibility.h"
#include "platform/linux/elements/LinuxReading.h"

namespace tarnwick {

/// Reads the menus of other applications from the accessibility bus, or from where their windows say that
/// they export them, and their windows from the X server. All reads of one reading share half a second:
/// ReadingBudget says what one is.
class AtspiAccessibility final : public Accessibility
{
public:
    explicit AtspiAccessibility(std::shared_ptr<LinuxReading> reading) : _reading(std::move(reading)) {}

    void beginReading() override { _reading->budget.begin(); }
    [[nodiscard]] bool apiEnabled() override;
    /// There is one switch for all programs: what apiEnabled() found last.
    [[nodiscard]] bool isProcessTrusted() override;
    [[nodiscard]] UIElementRef createSystemWide() override;
    [[nodiscard]] UIElementRef createApplication(qint64 processIdentifier) override;
    [[nodiscard]] std::optional<qint64> getPid(const UIElementRef& element) override;
    [[nodiscard]] std::optional<QStringList> copyAttributeNames(const UIElementRef& element) override;
    [[nodiscard]] std::optional<QVariant> copyAttributeValue(const UIElementRef& element,
                                                             const QString& attribute) override;
    [[nodiscard]] std::optional<int> getAttributeValueCount(const UIElementRef& element,
                                                            const QString& attribute) override;
    [[nodiscard]] std::optional<bool> isAttributeSettable(const UIElementRef& element,
                                                          const QString& attribute) override;
    bool setAttributeValue(const UIElementRef& element, const QString& attribute,
                           const QVariant& value) override;
    [[nodiscard]] std::optional<QStringList> copyActionNames(const UIElementRef& element) override;
    [[nodiscard]] std::optional<QString> copyActionDescription(const UIElementRef& element,
                                                               const QString& action) override;
    bool performAction(const UIElementRef& element, const QString& action) override;

private:
    std::shared_ptr<LinuxReading> _reading;
};

} // namespace tarnwick
