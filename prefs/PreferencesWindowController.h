// SPDX-License-Identifier: MIT
#pragma once

#include <QUrl>

namespace tarnwick {

/// The preferences. GUI thread only.
class PreferencesWindowController
{
public:
    /// Makes the user's login items contain exactly one entry for `applicationUrl`, or none. Does nothing
    /// where there is no such list.
    static void setStartAtLoginEnabled(const QUrl& applicationUrl, bool enabled);

    /// File URL of what the user starts.
    [[nodiscard]] QUrl appURL() const;
};

} // namespace tarnwick
