// SPDX-License-Identifier: MIT
// Simulated accessibility: elements of other applications, structured values, the permission.
#include "ax/AXValue.h"
#include "platform/macos/SystemFunction.h"
#include "tests/macos/simulation/MacObject.h"
#include "tests/macos/simulation/SimulatedMac.h"

#include <ApplicationServices/ApplicationServices.h>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using namespace tarnwick;

SimulatedMac& mac()
{
    return SimulatedMac::instance();
}
MacObjects& objects()
{
    return MacObjects::instance();
}

Boolean apiEnabled()
{
    mac().record(u"AXAPIEnabled"_s);
    return mac().accessGranted;
}

CFStringRef permanentString(const char16_t* text)
{
    auto* string = objects().makePermanent<MacString>();
    string->text = QString::fromUtf16(text);
    return referenceTo<CFStringRef>(string);
}

MacElement* elementFor(const AxNodeRef& node)
{
    return dynamic_cast<MacElement*>(objectFor(QVariant::fromValue(node)));
}

/// The node of an element that can answer; otherwise null and the reason.
AxNode* answering(AXUIElementRef reference, const QString& function, AXError& error)
{
    const auto* element = objects().find<MacElement>(reference);
    AxNode* node = element ? element->node.get() : nullptr;
    if (const auto status = mac().failure(function))
        error = static_cast<AXError>(*status);
    else if (!mac().accessGranted && !mac().processTrusted)
        error = kAXErrorAPIDisabled;
    else if (!node || node->gone)
        error = kAXErrorInvalidUIElement;
    else if (node->hung)
        error = kAXErrorCannotComplete;
    else
        error = kAXErrorSuccess;
    return error == kAXErrorSuccess ? node : nullptr;
}

/// The readable attribute of an answering element; otherwise null and the reason.
const QVariant* readable(AXUIElementRef reference, CFStringRef attribute, const QString& function,
                         AXError& error)
{
    mac().record(function, {textOf(attribute)});
    AxNode* node = answering(reference, function, error);
    const QVariant* value = node ? node->value(textOf(attribute)) : nullptr;
    if (node && !value)
        error = kAXErrorAttributeUnsupported;
    else if (value && !value->isValid())
        error = kAXErrorNoValue;
    return error == kAXErrorSuccess ? value : nullptr;
}

} // namespace

namespace tarnwick {

void* systemFunction(const char* name)
{
    const QString function = QString::fromLatin1(name);
    if (mac().isMissing(function))
        return nullptr;
    if (function == u"AXAPIEnabled"_s)
        return reinterpret_cast<void*>(&apiEnabled);
    if (function == u"AXIsProcessTrustedWithOptions"_s)
        return reinterpret_cast<void*>(&AXIsProcessTrustedWithOptions);
    return nullptr;
}

} // namespace tarnwick

const CFStringRef kAXTrustedCheckOptionPrompt = permanentString(u"AXTrustedCheckOptionPrompt");

Boolean AXIsProcessTrusted()
{
    mac().record(u"AXIsProcessTrusted"_s);
    return mac().processTrusted;
}

Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef options)
{
    mac().record(u"AXIsProcessTrustedWithOptions"_s, {valueOf(options)});
    return mac().processTrusted;
}

AXUIElementRef AXUIElementCreateSystemWide()
{
    mac().record(u"AXUIElementCreateSystemWide"_s);
    if (!mac().systemWide)
        return nullptr;
    return handOut<AXUIElementRef>(elementFor(mac().systemWide), u"AXUIElementCreateSystemWide"_s);
}

AXUIElementRef AXUIElementCreateApplication(pid_t processIdentifier)
{
    mac().record(u"AXUIElementCreateApplication"_s, {processIdentifier});
    const auto& all = mac().applications;
    const auto found = std::find_if(all.cbegin(), all.cend(), [&](const AxNodeRef& each) {
        return each->processIdentifier == processIdentifier;
    });
    auto* element = objects().make<MacElement>();
    element->processIdentifier = processIdentifier;
    if (found != all.cend())
        element->node = *found;
    return handOut<AXUIElementRef>(element, u"AXUIElementCreateApplication"_s);
}

AXError AXUIElementGetPid(AXUIElementRef reference, pid_t* processIdentifier)
{
    if (const auto status = mac().failure(u"AXUIElementGetPid"_s))
        return static_cast<AXError>(*status);
    const auto* element = objects().find<MacElement>(reference);
    if (!element)
        return kAXErrorIllegalArgument;
    *processIdentifier = static_cast<pid_t>(element->processIdentifier);
    return kAXErrorSuccess;
}

AXError AXUIElementCopyAttributeNames(AXUIElementRef reference, CFArrayRef* names)
{
    mac().record(u"AXUIElementCopyAttributeNames"_s);
    AXError error{};
    const AxNode* node = answering(reference, u"AXUIElementCopyAttributeNames"_s, error);
    if (!node)
        return error;
    QVariantList listed;
    for (const auto& [name, value] : node->attributes) {
        if (!node->unlisted.contains(name))
            listed.append(name);
    }
    *names = handOut<CFArrayRef>(objectFor(listed), u"AXUIElementCopyAttributeNames"_s);
    return kAXErrorSuccess;
}

AXError AXUIElementCopyAttributeValue(AXUIElementRef reference, CFStringRef attribute, CFTypeRef* value)
{
    AXError error{};
    if (const QVariant* found = readable(reference, attribute, u"AXUIElementCopyAttributeValue"_s, error))
        *value = handOut<CFTypeRef>(objectFor(*found), u"AXUIElementCopyAttributeValue"_s);
    return error;
}

AXError AXUIElementGetAttributeValueCount(AXUIElementRef reference, CFStringRef attribute, CFIndex* count)
{
    AXError error{};
    const QVariant* found = readable(reference, attribute, u"AXUIElementGetAttributeValueCount"_s, error);
    if (!found)
        return error;
    if (found->typeId() != QMetaType::QVariantList)
        return kAXErrorIllegalArgument;
    *count = found->toList().size();
    return kAXErrorSuccess;
}

AXError AXUIElementIsAttributeSettable(AXUIElementRef reference, CFStringRef attribute, Boolean* settable)
{
    mac().record(u"AXUIElementIsAttributeSettable"_s, {textOf(attribute)});
    AXError error{};
    if (AxNode* node = answering(reference, u"AXUIElementIsAttributeSettable"_s, error)) {
        if (!node->value(textOf(attribute)))
            return kAXErrorAttributeUnsupported;
        *settable = node->settable.contains(textOf(attribute));
    }
    return error;
}

AXError AXUIElementSetAttributeValue(AXUIElementRef reference, CFStringRef attribute, CFTypeRef value)
{
    mac().record(u"AXUIElementSetAttributeValue"_s, {textOf(attribute), valueOf(value)});
    AXError error{};
    AxNode* node = answering(reference, u"AXUIElementSetAttributeValue"_s, error);
    if (!node)
        return error;
    if (!node->settable.contains(textOf(attribute)))
        return kAXErrorAttributeUnsupported;
    node->set(textOf(attribute), valueOf(value));
    node->written.append({textOf(attribute), valueOf(value)});
    return kAXErrorSuccess;
}

AXError AXUIElementCopyActionNames(AXUIElementRef reference, CFArrayRef* names)
{
    mac().record(u"AXUIElementCopyActionNames"_s);
    AXError error{};
    const AxNode* node = answering(reference, u"AXUIElementCopyActionNames"_s, error);
    if (!node)
        return error;
    QVariantList actions;
    for (const auto& [action, description] : node->actions)
        actions.append(action);
    *names = handOut<CFArrayRef>(objectFor(actions), u"AXUIElementCopyActionNames"_s);
    return kAXErrorSuccess;
}

AXError AXUIElementCopyActionDescription(AXUIElementRef reference, CFStringRef action,
                                         CFStringRef* description)
{
    mac().record(u"AXUIElementCopyActionDescription"_s, {textOf(action)});
    AXError error{};
    const AxNode* node = answering(reference, u"AXUIElementCopyActionDescription"_s, error);
    if (!node)
        return error;
    for (const auto& [name, text] : node->actions) {
        if (name != textOf(action))
            continue;
        *description = handOut<CFStringRef>(objectFor(text), u"AXUIElementCopyActionDescription"_s);
        return kAXErrorSuccess;
    }
    return kAXErrorActionUnsupported;
}

AXError AXUIElementPerformAction(AXUIElementRef reference, CFStringRef action)
{
    mac().record(u"AXUIElementPerformAction"_s, {textOf(action)});
    AXError error{};
    AxNode* node = answering(reference, u"AXUIElementPerformAction"_s, error);
    if (!node)
        return error;
    const bool known = std::any_of(node->actions.cbegin(), node->actions.cend(),
                                   [&](const auto& each) { return each.first == textOf(action); });
    if (!known)
        return kAXErrorActionUnsupported;
    node->performed.append(textOf(action));
    return kAXErrorSuccess;
}

AXError AXUIElementSetMessagingTimeout(AXUIElementRef reference, float timeoutInSeconds)
{
    const auto* element = objects().find<MacElement>(reference);
    mac().record(u"AXUIElementSetMessagingTimeout"_s,
                 {element && element->node == mac().systemWide, timeoutInSeconds});
    return kAXErrorSuccess;
}

AXValueRef AXValueCreate(::AXValueType type, const void* value)
{
    mac().record(u"AXValueCreate"_s, {uint(type)});
    if (mac().failure(u"AXValueCreate"_s))
        return nullptr;
    AXValue structured;
    if (type == kAXValueTypeCGPoint) {
        const auto* point = static_cast<const CGPoint*>(value);
        structured = AXValue(QPointF(point->x, point->y));
    } else if (type == kAXValueTypeCGSize) {
        const auto* size = static_cast<const CGSize*>(value);
        structured = AXValue(QSizeF(size->width, size->height));
    } else if (type == kAXValueTypeCGRect) {
        const auto* rect = static_cast<const CGRect*>(value);
        structured = AXValue(QRectF(rect->origin.x, rect->origin.y, rect->size.width, rect->size.height));
    } else if (type == kAXValueTypeCFRange) {
        const auto* range = static_cast<const CFRange*>(value);
        structured = AXValue(AXRange{range->location, range->length});
    }
    return handOut<AXValueRef>(objectFor(QVariant::fromValue(structured)), u"AXValueCreate"_s);
}

::AXValueType AXValueGetType(AXValueRef value)
{
    const auto* object = objects().find<MacValue>(value);
    return object ? static_cast<::AXValueType>(object->type) : kAXValueTypeIllegal;
}

Boolean AXValueGetValue(AXValueRef value, ::AXValueType type, void* result)
{
    const auto* object = objects().find<MacValue>(value);
    if (!object || object->type != type || mac().failure(u"AXValueGetValue"_s))
        return false;
    const auto structured = object->value.value<AXValue>();
    if (const auto* point = structured.get<QPointF>())
        *static_cast<CGPoint*>(result) = {point->x(), point->y()};
    else if (const auto* size = structured.get<QSizeF>())
        *static_cast<CGSize*>(result) = {size->width(), size->height()};
    else if (const auto* rect = structured.get<QRectF>())
        *static_cast<CGRect*>(result) = {{rect->x(), rect->y()}, {rect->width(), rect->height()}};
    else if (const auto* range = structured.get<AXRange>())
        *static_cast<CFRange*>(result) = {static_cast<CFIndex>(range->location),
                                          static_cast<CFIndex>(range->length)};
    return true;
}
