// SPDX-License-Identifier: MIT
#pragma once

#include "ax/AXValue.h"
#include "ax/UIElement.h"

#include <QPointF>
#include <QRectF>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>

namespace tarnwick {

/// Reads, describes and writes accessibility elements through Accessibility::shared(). Stateless, and never
/// fails visibly: what cannot be had is nothing, 0, false, the zero rectangle or (0, 0). An empty handle is
/// an element that answers nothing. GUI thread only; a call may wait for the other application.
class UIElementUtilities
{
public:
    UIElementUtilities() = delete;

    [[nodiscard]] static qint64 processIdentifierOfUIElement(const UIElementRef& element);
    [[nodiscard]] static std::optional<QStringList> attributeNamesOfUIElement(const UIElementRef& element);
    [[nodiscard]] static std::optional<QStringList> actionNamesOfUIElement(const UIElementRef& element);
    [[nodiscard]] static std::optional<QString> descriptionOfActionOfUIElement(const QString& action,
                                                                               const UIElementRef& element);
    static void performActionOfUIElement(const QString& action, const UIElementRef& element);

    /// Invalid unless the element lists the attribute among its names and answers it. An attribute that is
    /// not listed is not asked for, though that costs a query of the names at every read.
    [[nodiscard]] static QVariant valueOfAttributeOfUIElement(const QString& attribute,
                                                              const UIElementRef& element);
    [[nodiscard]] static bool canSetAttributeOfUIElement(const QString& attribute,
                                                         const UIElementRef& element);

    /// Writes `string` in the type of the attribute's present value: a structured value from its terse
    /// description, a text as it is, a number in single precision. Does nothing when there is no present
    /// value, or one of another type.
    static void setStringValueForAttributeOfUIElement(const QString& string, const QString& attribute,
                                                      const UIElementRef& element);

    [[nodiscard]] static QVariant titleOfUIElement(const UIElementRef& element);
    [[nodiscard]] static QVariant roleOfUIElement(const UIElementRef& element);
    [[nodiscard]] static QVariant parentOfUIElement(const UIElementRef& element);
    [[nodiscard]] static bool isApplicationUIElement(const UIElementRef& element);

    /// Short descriptions from the outermost ancestor down to the element itself.
    [[nodiscard]] static QStringList lineageOfUIElement(const UIElementRef& element);
    /// The lineage, a line each, every line one blank further in.
    [[nodiscard]] static QString lineageDescriptionOfUIElement(const UIElementRef& element);
    /// Lineage, attributes and actions, for people to read.
    [[nodiscard]] static QString stringDescriptionOfUIElement(const UIElementRef& element);

    /// Of an element its title, else its role; nothing for an invalid value.
    [[nodiscard]] static std::optional<QString> descriptionOfValueBeingVerbose(const QVariant& value,
                                                                               bool verbose);
    [[nodiscard]] static std::optional<QString> descriptionOfValueBeingVerbose(const UIElementRef& element,
                                                                               bool verbose);
    [[nodiscard]] static QString stringDescriptionOfAXValueBeingVerbose(const AXValue& value, bool verbose);
    [[nodiscard]] static std::optional<QString>
    descriptionForUIElementAttributeBeingVerbose(const UIElementRef& element, const QString& attribute,
                                                 bool verbose);
    [[nodiscard]] static QString descriptionOfAXDescriptionOfUIElement(const UIElementRef& element);

    /// Window-system space: origin at the bottom left of the screen with the menu bar, y growing upward.
    [[nodiscard]] static QRectF frameOfUIElement(const UIElementRef& element);
    /// Between the window system's space and the accessibility one (origin at the top left of the screen with
    /// the menu bar, y growing downward), in both directions.
    [[nodiscard]] static QRectF flippedScreenBounds(const QRectF& bounds);
    /// Window-system space to accessibility space, by the height of the screen that holds the point and one
    /// pixel less; (0, 0) for a point on no screen. Deliberately not the rule of flippedScreenBounds().
    [[nodiscard]] static QPointF carbonScreenPointFromCocoaScreenPoint(const QPointF& cocoaPoint);
};

} // namespace tarnwick
