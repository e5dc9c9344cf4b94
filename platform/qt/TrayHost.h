// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace tarnwick {

/// Whether and how the desktop shows status items now. GUI thread only.
class TrayHost : public QObject
{
    Q_OBJECT

public:
    enum class Kind {
        None,
        Embedding,  ///< items are windows of ours: we draw them and open their menus
        Publishing, ///< items are described to the desktop, which draws them and opens their menus
    };

    [[nodiscard]] virtual Kind kind() const = 0;

Q_SIGNALS:
    /// kind() has changed, or another host of the same kind has taken over.
    void changed();
};

} // namespace tarnwick
