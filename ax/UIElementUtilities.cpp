// SPDX-License-Identifier: MIT
#include "ax/UIElementUtilities.h"

#include "ax/Accessibility.h"
#include "foundation/CNumbers.h"
#include "foundation/CScanner.h"
#include "foundation/Screens.h"

#include <QMetaType>
#include <QVariantList>

#include <algorithm>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

const QString NullText = u"(null)"_s;

bool isOfType(const QVariant& value, QMetaType type)
{
    return value.metaType() == type;
}

std::optional<QVariant> copyAttributeValue(const UIElementRef& element, const QString& attribute)
{
    return element ? Accessibility::shared().copyAttributeValue(element, attribute) : std::nullopt;
}

QString arrayDescription(qsizetype count)
{
    return u"<array of size %1>"_s.arg(count);
}

bool isNumber(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
        return true;
    default:
        return false;
    }
}

// How an object describes itself: a text as it is, a boolean as "1" or "0", a number as its decimal text with
// the digits that its type holds.
QString ownDescription(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool() ? u"1"_s : u"0"_s;
    case QMetaType::Float:
        return formatG(value.toDouble(), 7);
    case QMetaType::Double:
        return formatG(value.toDouble(), 16);
    default:
        return isOfType(value, QMetaType::fromType<UIElementRef>()) ? u"<AXUIElement>"_s : value.toString();
    }
}

AXValue scannedValue(AXValueType type, const QString& string)
{
    const QByteArray text = string.toUtf8();
    CScanner scanner{QByteArrayView(text.constData())};
    // Scanned into single precision and widened: the rounding is part of the rule.
    const auto field = [&scanner](const char* name) -> double { return scanner.literal(name).g(); };
    const auto integer = [&scanner](const char* name) { return scanner.literal(name).ld(); };
    switch (type) {
    case AXValueType::Point: {
        const double x = field("x=");
        return AXValue(QPointF(x, field(" y=")));
    }
    case AXValueType::Size: {
        const double width = field("w=");
        return AXValue(QSizeF(width, field(" h=")));
    }
    case AXValueType::Rect: {
        const double x = field("x=");
        const double y = field(" y=");
        const double width = field(" w=");
        return AXValue(QRectF(x, y, width, field(" h=")));
    }
    case AXValueType::Range: {
        const qint64 location = integer("pos=");
        return AXValue(AXRange{location, integer(" len=")});
    }
    case AXValueType::None:
        break;
    }
    return {};
}

// The value to write for `string` where `current` stands now; invalid when there is none.
QVariant valueInTypeOf(const QVariant& current, const QString& string)
{
    if (isOfType(current, QMetaType::fromType<AXValue>())) {
        const AXValueType type = current.value<AXValue>().type();
        return type == AXValueType::None ? QVariant() : QVariant::fromValue(scannedValue(type, string));
    }
    if (current.typeId() == QMetaType::QString)
        return string;
    if (isNumber(current))
        return QVariant(floatValue(string));
    return {};
}

QString terseDescription(const AXValue& value)
{
    if (const auto* point = value.get<QPointF>())
        return u"x="_s + formatG(point->x()) + u" y="_s + formatG(point->y());
    if (const auto* size = value.get<QSizeF>())
        return u"w="_s + formatG(size->width()) + u" h="_s + formatG(size->height());
    if (const auto* rect = value.get<QRectF>()) {
        return u"x="_s + formatG(rect->x()) + u" y="_s + formatG(rect->y()) + u" w="_s +
               formatG(rect->width()) + u" h="_s + formatG(rect->height());
    }
    if (const auto* range = value.get<AXRange>())
        return u"pos="_s + QString::number(range->location) + u" len="_s + QString::number(range->length);
    return u"AXValue???"_s;
}

// The lower and left edges belong to the rectangle, the others do not.
bool containsPoint(const QRectF& rect, const QPointF& point)
{
    return point.x() >= rect.left() && point.x() < rect.left() + rect.width() && point.y() >= rect.top() &&
           point.y() < rect.top() + rect.height();
}

} // namespace

qint64 UIElementUtilities::processIdentifierOfUIElement(const UIElementRef& element)
{
    return element ? Accessibility::shared().getPid(element).value_or(0) : 0;
}

std::optional<QStringList> UIElementUtilities::attributeNamesOfUIElement(const UIElementRef& element)
{
    return element ? Accessibility::shared().copyAttributeNames(element) : std::nullopt;
}

std::optional<QStringList> UIElementUtilities::actionNamesOfUIElement(const UIElementRef& element)
{
    return element ? Accessibility::shared().copyActionNames(element) : std::nullopt;
}

std::optional<QString> UIElementUtilities::descriptionOfActionOfUIElement(const QString& action,
                                                                          const UIElementRef& element)
{
    return element ? Accessibility::shared().copyActionDescription(element, action) : std::nullopt;
}

void UIElementUtilities::performActionOfUIElement(const QString& action, const UIElementRef& element)
{
    if (element)
        Accessibility::shared().performAction(element, action);
}

QVariant UIElementUtilities::valueOfAttributeOfUIElement(const QString& attribute,
                                                         const UIElementRef& element)
{
    const auto names = attributeNamesOfUIElement(element);
    if (!names || !names->contains(attribute))
        return {};
    return copyAttributeValue(element, attribute).value_or(QVariant());
}

bool UIElementUtilities::canSetAttributeOfUIElement(const QString& attribute, const UIElementRef& element)
{
    return element && Accessibility::shared().isAttributeSettable(element, attribute).value_or(false);
}

void UIElementUtilities::setStringValueForAttributeOfUIElement(const QString& string,
                                                               const QString& attribute,
                                                               const UIElementRef& element)
{
    if (attribute.isNull())
        return;
    const auto current = copyAttributeValue(element, attribute);
    if (!current)
        return;
    const QVariant value = valueInTypeOf(*current, string);
    if (value.isValid())
        Accessibility::shared().setAttributeValue(element, attribute, value);
}

QVariant UIElementUtilities::titleOfUIElement(const UIElementRef& element)
{
    return valueOfAttributeOfUIElement(AXTitleAttribute, element);
}

QVariant UIElementUtilities::roleOfUIElement(const UIElementRef& element)
{
    return valueOfAttributeOfUIElement(AXRoleAttribute, element);
}

QVariant UIElementUtilities::parentOfUIElement(const UIElementRef& element)
{
    return valueOfAttributeOfUIElement(AXParentAttribute, element);
}

bool UIElementUtilities::isApplicationUIElement(const UIElementRef& element)
{
    return roleOfUIElement(element).toString() == AXApplicationRole;
}

QStringList UIElementUtilities::lineageOfUIElement(const UIElementRef& element)
{
    QStringList lineage;
    QList<UIElementRef> seen;
    // The depth has no limit, but an element that is its own ancestor ends the lineage.
    for (UIElementRef ancestor = element; ancestor && !seen.contains(ancestor);
         ancestor = parentOfUIElement(ancestor).value<UIElementRef>()) {
        seen.append(ancestor);
        lineage.prepend(descriptionOfValueBeingVerbose(ancestor, false).value_or(NullText));
    }
    return lineage;
}

QString UIElementUtilities::lineageDescriptionOfUIElement(const UIElementRef& element)
{
    QString description;
    QString indent;
    const QStringList lineage = lineageOfUIElement(element);
    for (const QString& entry : lineage) {
        description += indent + entry + u'\n';
        indent += u' ';
    }
    return description;
}

QString UIElementUtilities::stringDescriptionOfUIElement(const UIElementRef& element)
{
    QString description = lineageDescriptionOfUIElement(element);
    const QStringList attributes = attributeNamesOfUIElement(element).value_or(QStringList());
    if (!attributes.isEmpty())
        description += u"\nAttributes:\n"_s;
    for (const QString& name : attributes) {
        const QString writable = canSetAttributeOfUIElement(name, element) ? u" (W)"_s : u""_s;
        const auto value = descriptionForUIElementAttributeBeingVerbose(element, name, false);
        description += u"   "_s + name + writable + u":  “"_s + value.value_or(NullText) + u"”\n"_s;
    }
    const QStringList actions = actionNamesOfUIElement(element).value_or(QStringList());
    if (!actions.isEmpty())
        description += u"\nActions:\n"_s;
    for (const QString& name : actions) {
        const auto text = descriptionOfActionOfUIElement(name, element);
        description += u"   "_s + name + u" - "_s + text.value_or(NullText) + u'\n';
    }
    return description;
}

std::optional<QString> UIElementUtilities::descriptionOfValueBeingVerbose(const QVariant& value, bool verbose)
{
    if (!value.isValid())
        return std::nullopt;
    if (isOfType(value, QMetaType::fromType<AXValue>()))
        return stringDescriptionOfAXValueBeingVerbose(value.value<AXValue>(), verbose);
    if (value.typeId() == QMetaType::QVariantList)
        return arrayDescription(value.toList().size());
    if (isOfType(value, QMetaType::fromType<UIElementRef>()))
        return descriptionOfValueBeingVerbose(value.value<UIElementRef>(), verbose);
    return ownDescription(value);
}

std::optional<QString> UIElementUtilities::descriptionOfValueBeingVerbose(const UIElementRef& element,
                                                                          bool /*verbose*/)
{
    if (!element)
        return std::nullopt;
    // The role is read as it is, the title safely.
    const auto role = copyAttributeValue(element, AXRoleAttribute);
    if (!role)
        return ownDescription(QVariant::fromValue(element));
    const QVariant title = titleOfUIElement(element);
    return ownDescription(title.isValid() ? title : *role);
}

QString UIElementUtilities::stringDescriptionOfAXValueBeingVerbose(const AXValue& value, bool verbose)
{
    QString terse = terseDescription(value);
    if (!verbose)
        return terse;
    switch (value.type()) {
    case AXValueType::Point:
        return u"<AXPointValue "_s + terse + u'>';
    case AXValueType::Size:
        return u"<AXSizeValue "_s + terse + u'>';
    case AXValueType::Rect:
        return u"<AXRectValue  "_s + terse + u'>'; // two blanks, as people know it
    case AXValueType::Range:
        return u"<AXRangeValue "_s + terse + u'>';
    case AXValueType::None:
        break;
    }
    return terse;
}

std::optional<QString>
UIElementUtilities::descriptionForUIElementAttributeBeingVerbose(const UIElementRef& element,
                                                                 const QString& attribute, bool verbose)
{
    if (element && (attribute == AXChildrenAttribute || attribute == AXRowsAttribute)) {
        if (const auto count = Accessibility::shared().getAttributeValueCount(element, attribute))
            return arrayDescription(*count);
    }
    return descriptionOfValueBeingVerbose(copyAttributeValue(element, attribute).value_or(QVariant()),
                                          verbose);
}

QString UIElementUtilities::descriptionOfAXDescriptionOfUIElement(const UIElementRef& element)
{
    const QVariant description = valueOfAttributeOfUIElement(AXDescriptionAttribute, element);
    const QString text = description.isValid() ? ownDescription(description) : QString();
    return text.isEmpty() ? u"No Description"_s : text;
}

QRectF UIElementUtilities::frameOfUIElement(const UIElementRef& element)
{
    const QVariant position = valueOfAttributeOfUIElement(AXPositionAttribute, element);
    const QVariant size = valueOfAttributeOfUIElement(AXSizeAttribute, element);
    if (!position.isValid() || !size.isValid())
        return {};
    const AXValue pointValue = position.value<AXValue>();
    const AXValue sizeValue = size.value<AXValue>();
    QRectF frame;
    if (const auto* point = pointValue.get<QPointF>()) {
        frame.moveTopLeft(*point);
        if (const auto* extent = sizeValue.get<QSizeF>())
            frame.setSize(*extent);
    }
    return flippedScreenBounds(frame);
}

QRectF UIElementUtilities::flippedScreenBounds(const QRectF& bounds)
{
    const QList<QRectF> frames = Screens::shared().frames();
    const QRectF first = frames.isEmpty() ? QRectF() : frames.first();
    // Rounded to single precision on purpose.
    const double top = static_cast<float>(first.y() + first.height());
    return {bounds.x(), top - (bounds.y() + bounds.height()), bounds.width(), bounds.height()};
}

QPointF UIElementUtilities::carbonScreenPointFromCocoaScreenPoint(const QPointF& cocoaPoint)
{
    const QList<QRectF> frames = Screens::shared().frames();
    const auto holder = std::find_if(frames.crbegin(), frames.crend(), [&cocoaPoint](const QRectF& frame) {
        return containsPoint(frame, cocoaPoint);
    });
    if (holder == frames.crend())
        return {};
    return {cocoaPoint.x(), holder->height() - cocoaPoint.y() - 1};
}

} // namespace tarnwick
