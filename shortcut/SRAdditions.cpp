// SPDX-License-Identifier: MIT
#include "shortcut/SRAdditions.h"

#include "foundation/FormatText.h"
#include "shortcut/Localized.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

Alert alertWithNonRecoverableError(const std::optional<SRError>& error)
{
    const QVariantMap info = error ? error->userInfo : QVariantMap();
    const QStringList options = info.value(NSLocalizedRecoveryOptionsErrorKey).toStringList();
    Alert alert;
    alert.messageText = error ? info.value(NSLocalizedDescriptionKey).toString() : localized("Alert");
    alert.informativeText = expandPercentSigns(info.value(NSLocalizedRecoverySuggestionErrorKey).toString());
    alert.buttonTitles = {options.isEmpty() ? localized("OK") : options.first()};
    return alert;
}

} // namespace tarnwick
