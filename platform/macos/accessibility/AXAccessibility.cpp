// SPDX-License-Identifier: MIT
#include "platform/macos/accessibility/AXAccessibility.h"

#include "ax/AXValue.h"
#include "foundation/Clock.h"
#include "foundation/Workspace.h"
#include "platform/macos/system/CfText.h"
#include "platform/macos/system/CfValue.h"
#include "platform/macos/system/SystemSymbol.h"

#include <ApplicationServices/ApplicationServices.h>
#include <utility>

namespace tarnwick {
namespace {

constexpr double PatienceInSeconds = 0.5;
constexpr double WaitedInVainInSeconds = 0.9 * PatienceInSeconds; // timers are not exact
const QString FocusedApplication = QStringLiteral("AXFocusedApplication");

static_assert(quint32{kAXValueTypeCGPoint} == quint32(AXValueType::Point));
static_assert(quint32{kAXValueTypeCGSize} == quint32(AXValueType::Size));
static_assert(quint32{kAXValueTypeCGRect} == quint32(AXValueType::Rect));
static_assert(quint32{kAXValueTypeCFRange} == quint32(AXValueType::Range));

class AXElement final : public UIElement
{
public:
    enum class Kind { Ordinary, SystemWide };
    AXElement(CfOwned<AXUIElementRef> element, Kind kind) : _element(std::move(element)), _kind(kind) {}

    [[nodiscard]] bool isSystemWide() const { return _kind == Kind::SystemWide; }
    [[nodiscard]] AXUIElementRef get() const { return _element.get(); }

    [[nodiscard]] bool isEqualTo(const UIElement& other) const override
    {
        const auto* element = dynamic_cast<const AXElement*>(&other);
        return element && CFEqual(_element.get(), element->_element.get());
    }

private:
    CfOwned<AXUIElementRef> _element;
    Kind _kind;
};

UIElementRef handleFor(CfOwned<AXUIElementRef> element, AXElement::Kind kind = AXElement::Kind::Ordinary)
{
    return element ? UIElementRef(std::make_shared<AXElement>(std::move(element), kind)) : UIElementRef();
}

bool isSystemWide(const UIElementRef& handle)
{
    const auto* element = dynamic_cast<const AXElement*>(handle.get());
    return element && element->isSystemWide();
}

/// Null for an empty handle and for one of another adapter.
AXUIElementRef systemElement(const UIElementRef& handle)
{
    const auto* element = dynamic_cast<const AXElement*>(handle.get());
    return element ? element->get() : nullptr;
}

AXValue structuredValueOf(AXValueRef value)
{
    switch (AXValueGetType(value)) {
    case kAXValueTypeCGPoint: {
        CGPoint point{};
        if (AXValueGetValue(value, kAXValueTypeCGPoint, &point))
            return AXValue(QPointF(point.x, point.y));
        break;
    }
    case kAXValueTypeCGSize: {
        CGSize size{};
        if (AXValueGetValue(value, kAXValueTypeCGSize, &size))
            return AXValue(QSizeF(size.width, size.height));
        break;
    }
    case kAXValueTypeCGRect: {
        CGRect rect{};
        if (AXValueGetValue(value, kAXValueTypeCGRect, &rect))
            return AXValue(QRectF(rect.origin.x, rect.origin.y, rect.size.width, rect.size.height));
        break;
    }
    case kAXValueTypeCFRange: {
        CFRange range{};
        if (AXValueGetValue(value, kAXValueTypeCFRange, &range))
            return AXValue(AXRange{range.location, range.length});
        break;
    }
    default:
        break;
    }
    return {};
}

/// An element or a structured value; invalid for anything else.
QVariant accessibilityValueOf(CFTypeRef object)
{
    const CFTypeID type = CFGetTypeID(object);
    if (type == AXValueGetTypeID())
        return QVariant::fromValue(structuredValueOf(static_cast<AXValueRef>(object)));
    if (type == AXUIElementGetTypeID())
        return QVariant::fromValue(handleFor(cfRetained(static_cast<AXUIElementRef>(object))));
    return {};
}

CfOwned<CFTypeRef> cfStructuredValue(const AXValue& value)
{
    if (const auto* point = value.get<QPointF>()) {
        const CGPoint native{point->x(), point->y()};
        return CfOwned<CFTypeRef>(AXValueCreate(kAXValueTypeCGPoint, &native));
    }
    if (const auto* size = value.get<QSizeF>()) {
        const CGSize native{size->width(), size->height()};
        return CfOwned<CFTypeRef>(AXValueCreate(kAXValueTypeCGSize, &native));
    }
    if (const auto* rect = value.get<QRectF>()) {
        const CGRect native{{rect->x(), rect->y()}, {rect->width(), rect->height()}};
        return CfOwned<CFTypeRef>(AXValueCreate(kAXValueTypeCGRect, &native));
    }
    if (const auto* range = value.get<AXRange>()) {
        const CFRange native =
            CFRangeMake(static_cast<CFIndex>(range->location), static_cast<CFIndex>(range->length));
        return CfOwned<CFTypeRef>(AXValueCreate(kAXValueTypeCFRange, &native));
    }
    return nullptr;
}

CfOwned<CFTypeRef> cfAttributeValue(const QVariant& value)
{
    if (value.metaType() == QMetaType::fromType<AXValue>())
        return cfStructuredValue(value.value<AXValue>());
    if (value.metaType() == QMetaType::fromType<UIElementRef>())
        return cfRetained<CFTypeRef>(systemElement(value.value<UIElementRef>()));
    return cfValue(value);
}

QStringList textsOf(CFArrayRef array)
{
    const CFIndex count = array ? CFArrayGetCount(array) : 0;
    QStringList texts;
    texts.reserve(count);
    for (CFIndex i = 0; i < count; ++i)
        texts.append(variantOf(CFArrayGetValueAtIndex(array, i)).toString());
    return texts;
}

bool isTrusted(bool askTheUser)
{
    auto* trusted = systemFunction<decltype(AXIsProcessTrustedWithOptions)>("AXIsProcessTrustedWithOptions");
    if (!trusted || !askTheUser)
        return AXIsProcessTrusted();
    const void* keys[] = {kAXTrustedCheckOptionPrompt};
    const void* values[] = {kCFBooleanTrue};
    const CfOwned<CFDictionaryRef> options(CFDictionaryCreate(kCFAllocatorDefault, keys, values, 1,
                                                              &kCFTypeDictionaryKeyCallBacks,
                                                              &kCFTypeDictionaryValueCallBacks));
    return trusted(options.get());
}

} // namespace

AXAccessibility::AXAccessibility()
{
    // Set on the system-wide element, the limit holds for every element.
    const CfOwned<AXUIElementRef> systemWide(AXUIElementCreateSystemWide());
    if (systemWide)
        AXUIElementSetMessagingTimeout(systemWide.get(), static_cast<float>(PatienceInSeconds));
}

bool AXAccessibility::apiEnabled()
{
    const bool decidesByProgram = systemSymbol("AXIsProcessTrustedWithOptions") != nullptr;
    auto* enabled = systemFunction<Boolean()>("AXAPIEnabled");
    if (!enabled)
        return AXIsProcessTrusted();
    return enabled() && (!decidesByProgram || AXIsProcessTrusted());
}

bool AXAccessibility::isProcessTrusted()
{
    return isTrusted(!std::exchange(_prompted, true));
}

UIElementRef AXAccessibility::createSystemWide()
{
    return handleFor(CfOwned<AXUIElementRef>(AXUIElementCreateSystemWide()), AXElement::Kind::SystemWide);
}

UIElementRef AXAccessibility::createApplication(qint64 processIdentifier)
{
    return handleFor(
        CfOwned<AXUIElementRef>(AXUIElementCreateApplication(static_cast<pid_t>(processIdentifier))));
}

std::optional<qint64> AXAccessibility::getPid(const UIElementRef& element)
{
    pid_t processIdentifier = 0;
    const auto system = systemElement(element);
    if (!system || AXUIElementGetPid(system, &processIdentifier) != kAXErrorSuccess)
        return std::nullopt;
    return processIdentifier;
}

std::optional<QStringList> AXAccessibility::copyAttributeNames(const UIElementRef& element)
{
    CFArrayRef names = nullptr;
    if (!_ask(element, [&] { return AXUIElementCopyAttributeNames(systemElement(element), &names); }))
        return std::nullopt;
    const CfOwned<CFArrayRef> owned(names);
    return textsOf(names);
}

std::optional<QVariant> AXAccessibility::copyAttributeValue(const UIElementRef& element,
                                                            const QString& attribute)
{
    CFTypeRef value = nullptr;
    if (!_ask(element, [&] {
            return AXUIElementCopyAttributeValue(systemElement(element), cfString(attribute).get(), &value);
        }))
        return isSystemWide(element) && attribute == FocusedApplication ? _activeApplication() : std::nullopt;
    const CfOwned<CFTypeRef> owned(value);
    return value ? std::optional(variantOf(value, accessibilityValueOf)) : std::nullopt;
}

std::optional<int> AXAccessibility::getAttributeValueCount(const UIElementRef& element,
                                                           const QString& attribute)
{
    CFIndex count = 0;
    if (!_ask(element, [&] {
            return AXUIElementGetAttributeValueCount(systemElement(element), cfString(attribute).get(),
                                                     &count);
        }))
        return std::nullopt;
    return static_cast<int>(count);
}

std::optional<bool> AXAccessibility::isAttributeSettable(const UIElementRef& element,
                                                         const QString& attribute)
{
    Boolean settable = false;
    if (!_ask(element, [&] {
            return AXUIElementIsAttributeSettable(systemElement(element), cfString(attribute).get(),
                                                  &settable);
        }))
        return std::nullopt;
    return settable != 0;
}

bool AXAccessibility::setAttributeValue(const UIElementRef& element, const QString& attribute,
                                        const QVariant& value)
{
    const auto native = cfAttributeValue(value);
    return native && _ask(element, [&] {
               return AXUIElementSetAttributeValue(systemElement(element), cfString(attribute).get(),
                                                   native.get());
           });
}

std::optional<QStringList> AXAccessibility::copyActionNames(const UIElementRef& element)
{
    CFArrayRef names = nullptr;
    if (!_ask(element, [&] { return AXUIElementCopyActionNames(systemElement(element), &names); }))
        return std::nullopt;
    const CfOwned<CFArrayRef> owned(names);
    return textsOf(names);
}

std::optional<QString> AXAccessibility::copyActionDescription(const UIElementRef& element,
                                                              const QString& action)
{
    CFStringRef description = nullptr;
    if (!_ask(element, [&] {
            return AXUIElementCopyActionDescription(systemElement(element), cfString(action).get(),
                                                    &description);
        }))
        return std::nullopt;
    const CfOwned<CFStringRef> owned(description);
    return textOfString(description);
}

bool AXAccessibility::performAction(const UIElementRef& element, const QString& action)
{
    const auto system = systemElement(element);
    if (!system)
        return false;
    const AXError error = AXUIElementPerformAction(system, cfString(action).get());
    // An item that opens a dialog answers only when the dialog has closed: the action was sent all the same.
    return error == kAXErrorSuccess || error == kAXErrorCannotComplete;
}

std::optional<QVariant> AXAccessibility::_activeApplication()
{
    const auto active = Workspace::shared().activeProcessIdentifier();
    return active ? std::optional(QVariant::fromValue(createApplication(*active))) : std::nullopt;
}

bool AXAccessibility::_ask(const UIElementRef& element, const std::function<qint32()>& call)
{
    if (!systemElement(element))
        return false;
    const qint64 processIdentifier = getPid(element).value_or(0);
    const auto silent = _silentUntil.constFind(processIdentifier);
    if (silent != _silentUntil.cend() && Clock::shared().now() < *silent)
        return false;
    const double asked = Clock::shared().now();
    const qint32 error = call();
    const double answered = Clock::shared().now();
    // What fails at once is a value that is missing, and no more.
    const bool waitedInVain = error == kAXErrorCannotComplete && answered - asked >= WaitedInVainInSeconds;
    if (waitedInVain && processIdentifier != 0)
        _silentUntil.insert(processIdentifier, answered + PatienceInSeconds);
    else
        _silentUntil.remove(processIdentifier);
    return error == kAXErrorSuccess;
}

} // namespace tarnwick
