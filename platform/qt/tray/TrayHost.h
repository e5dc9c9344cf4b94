// SPDX-License-Identifier: MIT
#pragma once

#include "platform/qt/tray/PublishedIcon.h"

#include <QMenu>
#include <QObject>

#include <functional>
#include <memory>

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

    /// To be asked each time before an icon of the toolkit's would be shown: one that is shown instead, where
    /// the host would not get that one; else null. `menu` must outlive it; `clicked` comes from the event
    /// loop.
    [[nodiscard]] virtual std::unique_ptr<PublishedIcon> publish(QMenu& /*menu*/,
                                                                 const std::function<void()>& /*clicked*/)
    {
        return nullptr;
    }

Q_SIGNALS:
    /// kind() has changed, or another host of the same kind has taken over.
    void changed();
};

} // namespace tarnwick
