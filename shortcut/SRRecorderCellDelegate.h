// SPDX-License-Identifier: MIT
#pragma once

#include "shortcut/KeyCombo.h"

#include <QString>

#include <optional>

namespace tarnwick {

class SRRecorderCell;

/// What a recorder cell tells and asks. The bodies do what a delegate that does not respond does.
class SRRecorderCellDelegate
{
public:
    virtual ~SRRecorderCellDelegate() = default;

    /// `keyCombo` holds Cocoa flags.
    virtual void shortcutRecorderCellKeyComboDidChange(SRRecorderCell& /*cell*/, const KeyCombo& /*keyCombo*/)
    {
    }

    /// Whether the combination is taken; see SRValidatorDelegate.
    virtual bool shortcutRecorderCellIsKeyCodeAndFlagsTakenReason(SRRecorderCell& /*cell*/,
                                                                  qint64 /*keyCode*/, quint64 /*cocoaFlags*/,
                                                                  std::optional<QString>& /*reason*/)
    {
        return false;
    }

protected:
    SRRecorderCellDelegate() = default;
    SRRecorderCellDelegate(const SRRecorderCellDelegate&) = default;
    SRRecorderCellDelegate& operator=(const SRRecorderCellDelegate&) = default;
    SRRecorderCellDelegate(SRRecorderCellDelegate&&) = default;
    SRRecorderCellDelegate& operator=(SRRecorderCellDelegate&&) = default;
};

} // namespace tarnwick
