// SPDX-License-Identifier: MIT
#pragma once

#include "shortcut/SRError.h"

#include <QString>
#include <QtGlobal>

#include <optional>

namespace tarnwick {

class Menu;
class SRValidator;

/// Somebody who reserves key combinations of his own.
class SRValidatorDelegate
{
public:
    virtual ~SRValidatorDelegate() = default;

    /// Whether the combination, in Cocoa flags, is taken, and why: a phrase for "… can't be used because …"
    /// which may stay missing or empty.
    virtual bool shortcutValidatorIsKeyCodeAndFlagsTakenReason(SRValidator& /*validator*/, qint64 /*keyCode*/,
                                                               quint64 /*cocoaFlags*/,
                                                               std::optional<QString>& /*reason*/)
    {
        return false;
    }

protected:
    SRValidatorDelegate() = default;
    SRValidatorDelegate(const SRValidatorDelegate&) = default;
    SRValidatorDelegate& operator=(const SRValidatorDelegate&) = default;
    SRValidatorDelegate(SRValidatorDelegate&&) = default;
    SRValidatorDelegate& operator=(SRValidatorDelegate&&) = default;
};

/// Tells whether a key combination is taken: by its delegate, by the desktop, or by a menu of this
/// application. Everything is read at the moment of the question. GUI thread only.
class SRValidator
{
public:
    /// The delegate is not owned and may be null.
    explicit SRValidator(SRValidatorDelegate* delegate = nullptr) : _delegate(delegate) {}

    [[nodiscard]] SRValidatorDelegate* delegate() const { return _delegate; }
    void setDelegate(SRValidatorDelegate* delegate) { _delegate = delegate; }

    /// Whether the combination, in Carbon flags, is taken. If so, `error` says by whom unless it is null; it
    /// stays as it was where the desktop's shortcuts could not be read or the key has no name.
    [[nodiscard]] bool isKeyCodeAndFlagsTakenError(qint64 keyCode, quint64 carbonFlags,
                                                   std::optional<SRError>* error);

    /// The same for the key equivalents of `menu` and its submenus, submenus before what follows them. A null
    /// menu takes nothing.
    [[nodiscard]] bool isKeyCodeAndFlagsTakenInMenuError(qint64 keyCode, quint64 carbonFlags,
                                                         const Menu* menu,
                                                         std::optional<SRError>* error) const;

private:
    [[nodiscard]] bool _isTakenByDelegate(qint64 keyCode, quint64 carbonFlags, std::optional<SRError>* error);
    [[nodiscard]] bool _isTakenBySystem(qint64 keyCode, quint64 carbonFlags,
                                        std::optional<SRError>* error) const;

    SRValidatorDelegate* _delegate;
};

} // namespace tarnwick
