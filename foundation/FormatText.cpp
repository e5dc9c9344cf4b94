// SPDX-License-Identifier: MIT
#include "foundation/FormatText.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

QString expandPercentSigns(const QString& format)
{
    QString text = format;
    return text.replace(u"%%"_s, u"%"_s);
}

} // namespace tarnwick
