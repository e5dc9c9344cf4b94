// SPDX-License-Identifier: MIT
#include "platform/linux/menus/MnemonicLabel.h"

namespace tarnwick {

QString titleOfMnemonicLabel(const QString& label, QChar mark)
{
    const QString seen = label.left(label.indexOf(u'\t')); // all of it without one
    if (!seen.contains(mark))
        return seen.trimmed();
    QString title;
    title.reserve(seen.size());
    for (qsizetype i = 0; i < seen.size(); ++i) {
        if (seen[i] == mark && ++i == seen.size())
            break;
        title.append(seen[i]);
    }
    return title.trimmed();
}

} // namespace tarnwick
