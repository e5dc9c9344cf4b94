// SPDX-License-Identifier: MIT
#pragma once

#include "shortcut/KeyCombo.h"

#include <QString>

#include <optional>

namespace tarnwick {

class SRRecorderControl;

/// What a recorder control tells and asks. The bodies do what a delegate that does not respond does.
class SRRecorderControlDelegate
{
public:
    virtual ~SRRecorderControlDelegate() = default;

    /// `keyCombo` holds Cocoa flags.
    virtual void shortcutRecorderKeyComboDidChange(SRRecorderControl& /*recorder*/,
                                                   const KeyCombo& /*keyCombo*/)
    {
    }

    /// Whether the combination is taken; see SRValidatorDelegate.
    virtual bool shortcutRecorderIsKeyCodeAndFlagsTakenReason(SRRecorderControl& /*recorder*/,
                                                              qint64 /*keyCode*/, quint64 /*cocoaFlags*/,
                                                              std::optional<QString>& /*reason*/)
    {
        return false;
    }

protected:
    SRRecorderControlDelegate() = default;
    SRRecorderControlDelegate(const SRRecorderControlDelegate&) = default;
    SRRecorderControlDelegate& operator=(const SRRecorderControlDelegate&) = default;
    SRRecorderControlDelegate(SRRecorderControlDelegate&&) = default;
    SRRecorderControlDelegate& operator=(SRRecorderControlDelegate&&) = default;
};

} // namespace tarnwick
