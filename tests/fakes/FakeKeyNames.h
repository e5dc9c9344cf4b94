// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Event.h"
#include "shortcut/KeyNames.h"

#include <map>

namespace tarnwick {

/// A desktop that says "Strg+Alt+", and that names the keys in `keys`.
class FakeKeyNames : public KeyNames
{
public:
    std::map<qint64, QString> keys{{121, QStringLiteral("Bild ab")}};

    [[nodiscard]] QString modifiers(quint64 cocoaFlags) const override
    {
        QString text;
        if (cocoaFlags & ControlKeyMask)
            text += QStringLiteral("Strg+");
        if (cocoaFlags & AlternateKeyMask)
            text += QStringLiteral("Alt+");
        if (cocoaFlags & ShiftKeyMask)
            text += QStringLiteral("Umschalt+");
        if (cocoaFlags & CommandKeyMask)
            text += QStringLiteral("Super+");
        return text;
    }

    [[nodiscard]] std::optional<QString> key(qint64 keyCode) const override
    {
        const auto named = keys.find(keyCode);
        return named == keys.end() ? std::nullopt : std::optional(named->second);
    }
};

} // namespace tarnwick
