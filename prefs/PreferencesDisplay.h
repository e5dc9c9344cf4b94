// SPDX-License-Identifier: MIT
#pragma once

namespace tarnwick {

/// What the application delegate asks of the preferences window.
class PreferencesDisplay
{
public:
    virtual ~PreferencesDisplay() = default;

    /// Brings the window up to date and shows it in front, on every request.
    virtual void displayWindow() = 0;

protected:
    PreferencesDisplay() = default;
    PreferencesDisplay(const PreferencesDisplay&) = default;
    PreferencesDisplay& operator=(const PreferencesDisplay&) = default;
    PreferencesDisplay(PreferencesDisplay&&) = default;
    PreferencesDisplay& operator=(PreferencesDisplay&&) = default;
};

} // namespace tarnwick
