// SPDX-License-Identifier: MIT
#pragma once

#include "ax/UIElement.h"
#include "foundation/SharedPort.h"

#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>

namespace tarnwick {

/// Names of attributes and actions, as the platform defines them.
inline const QString AXRoleAttribute = QStringLiteral("AXRole");
inline const QString AXTitleAttribute = QStringLiteral("AXTitle");
inline const QString AXParentAttribute = QStringLiteral("AXParent");
inline const QString AXDescriptionAttribute = QStringLiteral("AXDescription");
inline const QString AXChildrenAttribute = QStringLiteral("AXChildren");
inline const QString AXRowsAttribute = QStringLiteral("AXRows");
inline const QString AXPositionAttribute = QStringLiteral("AXPosition");
inline const QString AXSizeAttribute = QStringLiteral("AXSize");
inline const QString AXApplicationRole = QStringLiteral("AXApplication");
inline const QString AXPressAction = QStringLiteral("AXPress");

/// Reads and presses the user interfaces of other applications. A call may wait for the other application,
/// but only up to the adapter's own limit; what has not come by then has failed. A failure is a missing value
/// (nothing, or false), never more. GUI thread only.
///
/// An attribute value is a QVariant of QString, bool, an integer or floating-point number, AXValue,
/// UIElementRef, or QVariantList of these.
class Accessibility : public SharedPort<Accessibility>
{
public:
    virtual ~Accessibility() = default;

    /// Begins a new group of reads. Together they may wait up to the adapter's limit again, even when earlier
    /// reads in the same event handler have used it up.
    virtual void beginReading() = 0;

    /// Whether access is granted: to all programs, and to this one.
    [[nodiscard]] virtual bool apiEnabled() = 0;
    [[nodiscard]] virtual bool isProcessTrusted() = 0;

    /// The element of the whole system; an empty handle when accessibility is not there at all.
    [[nodiscard]] virtual UIElementRef createSystemWide() = 0;
    /// The element of the application with this process identifier; reads of it fail when there is none.
    [[nodiscard]] virtual UIElementRef createApplication(qint64 processIdentifier) = 0;

    [[nodiscard]] virtual std::optional<qint64> getPid(const UIElementRef& element) = 0;
    [[nodiscard]] virtual std::optional<QStringList> copyAttributeNames(const UIElementRef& element) = 0;
    [[nodiscard]] virtual std::optional<QVariant> copyAttributeValue(const UIElementRef& element,
                                                                     const QString& attribute) = 0;
    /// How many values an array attribute has, without fetching them.
    [[nodiscard]] virtual std::optional<int> getAttributeValueCount(const UIElementRef& element,
                                                                    const QString& attribute) = 0;
    [[nodiscard]] virtual std::optional<bool> isAttributeSettable(const UIElementRef& element,
                                                                  const QString& attribute) = 0;
    virtual bool setAttributeValue(const UIElementRef& element, const QString& attribute,
                                   const QVariant& value) = 0;
    [[nodiscard]] virtual std::optional<QStringList> copyActionNames(const UIElementRef& element) = 0;
    [[nodiscard]] virtual std::optional<QString> copyActionDescription(const UIElementRef& element,
                                                                       const QString& action) = 0;
    /// Sends the action and does not wait for the application to carry it out. True tells only that it was
    /// sent.
    virtual bool performAction(const UIElementRef& element, const QString& action) = 0;
};

} // namespace tarnwick
