// SPDX-License-Identifier: MIT
#pragma once

#include "ax/Accessibility.h"

#include <QHash>

#include <functional>

namespace tarnwick {

/// Other applications by the system's accessibility interface. One call waits half a second at most for an
/// application. One that has not answered by then is not read again for as long, or until the next reading
/// begins, so that a menu of many items does not wait for each of them; one that refuses at once is asked
/// again. An action is sent in any case.
class AXAccessibility final : public Accessibility
{
public:
    AXAccessibility();

    void beginReading() override { _silentUntil.clear(); }
    /// Whether the system lets this program in; where it does not decide program by program, whether it lets
    /// all of them in.
    [[nodiscard]] bool apiEnabled() override;
    /// At the first call in a process the system asks the user, unless the user has decided before.
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
    /// Runs `call`, which gives an AXError, unless the element's application is silent. False on any error.
    [[nodiscard]] bool _ask(const UIElementRef& element, const std::function<qint32()>& call);

    [[nodiscard]] std::optional<QVariant> _activeApplication();

    bool _prompted = false;
    QHash<qint64, double> _silentUntil; ///< by process identifier, on Clock's time
};

} // namespace tarnwick
