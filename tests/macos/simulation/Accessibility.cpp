// SPDX-License-Identifier: MIT
// Simulated accessibility: elements of other applications, structured values, the permission.
#include "ax/AXValue.h"
#include "tests/macos/simulation/MacObject.h"
#include "tests/macos/simulation/MacState.h"
#include "tests/macos/simulation/SimulatedMac.h"
#include "tests/macos/simulation/Symbols.h"

#include <QCoreApplication>

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
    const MacCall call("AXAPIEnabled");
    return !call.fails() && mac().accessGranted;
}

Boolean isProcessTrustedWithOptions(CFDictionaryRef options)
{
    const MacCall call("AXIsProcessTrustedWithOptions", options);
    return !call.fails() && mac().processTrusted;
}

MacElement* elementFor(const AxNodeRef& node)
{
    return dynamic_cast<MacElement*>(objectFor(QVariant::fromValue(node)));
}

/// A structure as `type` is laid out in memory.
QVariant structureAt(::AXValueType type, const void* value)
{
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
    return QVariant::fromValue(structured);
}

/// Whether the call is one of this process to itself, which waits for nobody.
bool isOurs(const AxNode& node)
{
    return node.processIdentifier == QCoreApplication::applicationPid();
}

/// Nobody answers before the call has waited in vain.
bool isHung(const AxNode& node)
{
    return node.hung || (isOurs(node) && !mac().answersItself);
}

/// The node of an element that can answer; otherwise null and the reason.
AxNode* answering(AXUIElementRef reference, const MacCall& call, AXError& error)
{
    const auto* element = objects().find<MacElement>(reference);
    AxNode* node = element ? element->node.get() : nullptr;
    if (call.fails())
        error = static_cast<AXError>(call.status());
    else if (!mac().accessGranted && !mac().processTrusted)
        error = kAXErrorAPIDisabled;
    else if (!node || node->gone)
        error = kAXErrorInvalidUIElement;
    else if (isHung(*node) || node->refusing)
        error = kAXErrorCannotComplete;
    else
        error = kAXErrorSuccess;
    if (node && isHung(*node) && error == kAXErrorCannotComplete && mac().whileWaiting)
        mac().whileWaiting(double(MacState::instance().messagingTimeout));
    return error == kAXErrorSuccess ? node : nullptr;
}

/// The same, and the name of an attribute or action, which must be there.
AxNode* answering(AXUIElementRef reference, CFStringRef name, const MacCall& call, AXError& error)
{
    AxNode* node = answering(reference, call, error);
    if (!node || name)
        return node;
    error = kAXErrorIllegalArgument;
    return nullptr;
}

/// The readable attribute of an answering element; otherwise null and the reason.
const QVariant* readable(AXUIElementRef reference, CFStringRef attribute, const MacCall& call, AXError& error)
{
    AxNode* node = answering(reference, attribute, call, error);
    const QVariant* value = node ? node->value(textOf(attribute)) : nullptr;
    if (node && !value)
        error = kAXErrorAttributeUnsupported;
    else if (value && !value->isValid())
        error = kAXErrorNoValue;
    return error == kAXErrorSuccess ? value : nullptr;
}

} // namespace

void* tarnwick::accessibilitySymbol(const QString& name)
{
    if (name == u"AXAPIEnabled"_s)
        return reinterpret_cast<void*>(&apiEnabled);
    if (name == u"AXIsProcessTrustedWithOptions"_s)
        return reinterpret_cast<void*>(&isProcessTrustedWithOptions);
    return nullptr;
}

const CFStringRef kAXTrustedCheckOptionPrompt = constantString<CFStringRef>(u"AXTrustedCheckOptionPrompt"_s);

Boolean AXIsProcessTrusted()
{
    const MacCall call(__func__);
    return !call.fails() && mac().processTrusted;
}

AXUIElementRef AXUIElementCreateSystemWide()
{
    const MacCall call(__func__);
    if (!mac().systemWide || call.fails())
        return nullptr;
    return handOut<AXUIElementRef>(elementFor(mac().systemWide), call);
}

AXUIElementRef AXUIElementCreateApplication(pid_t processIdentifier)
{
    const MacCall call(__func__, processIdentifier);
    if (call.fails())
        return nullptr;
    auto* element = objects().make<MacElement>();
    element->processIdentifier = processIdentifier;
    element->node = mac().application(processIdentifier);
    return handOut<AXUIElementRef>(element, call);
}

AXError AXUIElementGetPid(AXUIElementRef reference, pid_t* processIdentifier)
{
    const MacCall call(__func__, reference, processIdentifier);
    const auto* element = objects().find<MacElement>(reference);
    if (call.fails())
        return static_cast<AXError>(call.status());
    if (!element)
        return kAXErrorIllegalArgument;
    *processIdentifier = static_cast<pid_t>(element->processIdentifier);
    return kAXErrorSuccess;
}

AXError AXUIElementCopyAttributeNames(AXUIElementRef reference, CFArrayRef* names)
{
    const MacCall call(__func__, reference, names);
    AXError error{};
    const AxNode* node = answering(reference, call, error);
    if (!node)
        return error;
    QVariantList listed;
    for (const auto& [name, value] : node->attributes) {
        if (!node->unlisted.contains(name))
            listed.append(name);
    }
    *names = handOut<CFArrayRef>(objectFor(listed), call);
    return kAXErrorSuccess;
}

AXError AXUIElementCopyAttributeValue(AXUIElementRef reference, CFStringRef attribute, CFTypeRef* value)
{
    const MacCall call(__func__, reference, attribute, value);
    AXError error{};
    if (const QVariant* found = readable(reference, attribute, call, error))
        *value = handOut<CFTypeRef>(objectFor(*found), call);
    return error;
}

AXError AXUIElementGetAttributeValueCount(AXUIElementRef reference, CFStringRef attribute, CFIndex* count)
{
    const MacCall call(__func__, reference, attribute, count);
    AXError error{};
    const QVariant* found = readable(reference, attribute, call, error);
    if (!found)
        return error;
    if (found->typeId() != QMetaType::QVariantList)
        return kAXErrorIllegalArgument;
    *count = found->toList().size();
    return kAXErrorSuccess;
}

AXError AXUIElementIsAttributeSettable(AXUIElementRef reference, CFStringRef attribute, Boolean* settable)
{
    const MacCall call(__func__, reference, attribute, settable);
    AXError error{};
    if (AxNode* node = answering(reference, attribute, call, error)) {
        if (!node->value(textOf(attribute)))
            return kAXErrorAttributeUnsupported;
        *settable = node->settable.contains(textOf(attribute));
    }
    return error;
}

AXError AXUIElementSetAttributeValue(AXUIElementRef reference, CFStringRef attribute, CFTypeRef value)
{
    const MacCall call(__func__, reference, attribute, value);
    AXError error{};
    AxNode* node = answering(reference, attribute, call, error);
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
    const MacCall call(__func__, reference, names);
    AXError error{};
    const AxNode* node = answering(reference, call, error);
    if (!node)
        return error;
    QVariantList actions;
    for (const auto& [action, description] : node->actions)
        actions.append(action);
    *names = handOut<CFArrayRef>(objectFor(actions), call);
    return kAXErrorSuccess;
}

AXError AXUIElementCopyActionDescription(AXUIElementRef reference, CFStringRef action,
                                         CFStringRef* description)
{
    const MacCall call(__func__, reference, action, description);
    AXError error{};
    const AxNode* node = answering(reference, action, call, error);
    if (!node)
        return error;
    for (const auto& [name, text] : node->actions) {
        if (name != textOf(action))
            continue;
        *description = handOut<CFStringRef>(objectFor(text), call);
        return kAXErrorSuccess;
    }
    return kAXErrorActionUnsupported;
}

AXError AXUIElementPerformAction(AXUIElementRef reference, CFStringRef action)
{
    const MacCall call(__func__, reference, action);
    AXError error{};
    AxNode* node = answering(reference, action, call, error);
    if (!node)
        return error;
    const bool known = std::any_of(node->actions.cbegin(), node->actions.cend(),
                                   [&](const auto& each) { return each.first == textOf(action); });
    if (!known)
        return kAXErrorActionUnsupported;
    node->performed.append(textOf(action));
    // What another application does about it, it does in its own time.
    if (const auto perform = isOurs(*node) ? node->onPerform : nullptr)
        perform();
    return kAXErrorSuccess;
}

AXError AXUIElementSetMessagingTimeout(AXUIElementRef reference, float timeoutInSeconds)
{
    const MacCall call(__func__, reference, timeoutInSeconds);
    if (!objects().find<MacElement>(reference))
        return kAXErrorIllegalArgument;
    if (call.fails())
        return static_cast<AXError>(call.status());
    MacState::instance().messagingTimeout = timeoutInSeconds;
    return kAXErrorSuccess;
}

AXValueRef AXValueCreate(::AXValueType type, const void* value)
{
    const QVariant structured = structureAt(type, value);
    const MacCall call(__func__, type, structured);
    return call.fails() ? nullptr : handOut<AXValueRef>(objectFor(structured), call);
}

::AXValueType AXValueGetType(AXValueRef value)
{
    const MacCall call(__func__, value);
    const auto* object = objects().find<MacValue>(value);
    return object && !call.fails() ? static_cast<::AXValueType>(object->type) : kAXValueTypeIllegal;
}

Boolean AXValueGetValue(AXValueRef value, ::AXValueType type, void* result)
{
    const MacCall call(__func__, value, type, result);
    const auto* object = objects().find<MacValue>(value);
    if (!object || object->type != type || call.fails())
        return false;
    const auto structured = object->structured.value<AXValue>();
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
