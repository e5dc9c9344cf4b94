// SPDX-License-Identifier: MIT
#include "prefs/ToolbarItem.h"

#include <QRegularExpression>

namespace tarnwick {

QString ToolbarItem::plainLabel() const
{
    static const QRegularExpression mnemonic(QStringLiteral("\\(&.\\)$|&"));
    return QString(label).remove(mnemonic);
}

} // namespace tarnwick
