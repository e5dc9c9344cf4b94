// SPDX-License-Identifier: MIT
#pragma once

#include "shortcut/ValueTransformer.h"

#include <QMetaType>

namespace tarnwick {

/// Virtual key codes to the names of their keys on the current keyboard layout, and back.
class SRKeyCodeTransformer final : public ValueTransformer
{
public:
    SRKeyCodeTransformer();

    /// Makes the tables, follows changes of the keyboard layout from then on, and can be found by the name of
    /// the class. The first use of the class runs it; every further call does nothing.
    static void initialize();
    [[nodiscard]] static bool allowsReverseTransformation() { return true; }
    [[nodiscard]] static QMetaType transformedValueClass() { return QMetaType::fromType<QString>(); }
    /// Makes the map that reverseTransformedValue() reads anew from the current layout.
    static void regenerateStringToKeyCodeMapping();

    [[nodiscard]] bool classAllowsReverseTransformation() const override
    {
        return allowsReverseTransformation();
    }

    /// A number, of which the low 16 bits count, to a text; invalid when it is no number, is negative or the
    /// key has no name.
    [[nodiscard]] QVariant transformedValue(const QVariant& value) const override;

    /// A text to a key code; invalid when it is no text or no key bears that name. Of several such keys the
    /// one with the highest code.
    [[nodiscard]] QVariant reverseTransformedValue(const QVariant& value) const override;
};

} // namespace tarnwick
