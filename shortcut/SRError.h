// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariantMap>

namespace tarnwick {

inline const QString NSCocoaErrorDomain = QStringLiteral("NSCocoaErrorDomain");
inline const QString NSLocalizedDescriptionKey = QStringLiteral("NSLocalizedDescription");
inline const QString NSLocalizedRecoverySuggestionErrorKey = QStringLiteral("NSLocalizedRecoverySuggestion");
inline const QString NSLocalizedRecoveryOptionsErrorKey = QStringLiteral("NSLocalizedRecoveryOptions");

/// Why something was refused, with texts that are ready to show.
struct SRError
{
    QString domain = NSCocoaErrorDomain;
    qint64 code = 0;
    QVariantMap userInfo;
};

} // namespace tarnwick
