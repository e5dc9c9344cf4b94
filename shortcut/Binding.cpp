// SPDX-License-Identifier: MIT
#include "shortcut/Binding.h"

namespace tarnwick {

namespace {

void log(const char* text)
{
    // The "%s" of these texts is the name of the method under which users know them.
    QByteArray line(text);
    line.replace("%s", "-[SRRecorderControl shortcutRecorderCell:keyComboDidChange:]");
    qWarning("%s", line.constData());
}

std::shared_ptr<ValueTransformer> transformerOf(const Binding& binding)
{
    if (binding.valueTransformer.hasValue())
        return binding.valueTransformer.value();
    return binding.valueTransformerName.hasValue()
               ? ValueTransformer::valueTransformerForName(binding.valueTransformerName.value())
               : nullptr;
}

} // namespace

void pushValue(const QVariant& value, const Binding& binding)
{
    QVariant pushed = value;
    if (const auto transformer = transformerOf(binding)) {
        if (transformer->classAllowsReverseTransformation())
            pushed = transformer->reverseTransformedValue(pushed);
        else
            log("WARNING: value has value transformer, but it doesn't allow reverse transformations in %s");
    }
    if (!binding.observedObject.hasValue() || !binding.observedObject.value()) {
        log("ERROR: NSObservedObjectKey was nil for value binding in %s");
        return;
    }
    if (!binding.observedKeyPath.hasValue()) {
        log("ERROR: NSObservedKeyPathKey was nil for value binding in %s");
        return;
    }
    binding.observedObject.value()->setValueForKeyPath(pushed, binding.observedKeyPath.value());
}

} // namespace tarnwick
