// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Action.h"

#include <QIcon>
#include <QString>

namespace tarnwick {

/// One entry of the preferences toolbar; the sender of its action.
struct ToolbarItem final : ActionSender
{
    ToolbarItem(QString itemIdentifier, QString itemLabel, int itemTag, QIcon itemIcon)
        : identifier(std::move(itemIdentifier)), label(std::move(itemLabel)), tag(itemTag),
          icon(std::move(itemIcon))
    {
    }

    QString identifier;
    QString label; ///< with "&" before its mnemonic, or with "(&X)" at the end where no letter serves
    int tag;
    QIcon icon;

    /// The label as it reads.
    [[nodiscard]] QString plainLabel() const;
};

} // namespace tarnwick
