// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QObject>
#include <QSize>

class QWidget;

namespace tarnwick {

/// Asks again for the size of windows that have but one, where the compositor gives them another: it may have
/// answered to the size before, and to the first one, of which the toolkit takes the frame that it draws
/// itself. One that means what it says, as where windows are tiled, has the last word: nothing is asked for
/// more than a few times. GUI thread only.
class FixedWindowSizes final : public QObject
{
public:
    /// Of all windows of `application`, which owns this.
    explicit FixedWindowSizes(QObject& application);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Asked
    {
        QSize size;
        int times = 0;
    };

    void _askAgain(QWidget& window);

    QHash<const QObject*, Asked> _asked; ///< by the window, since it was shown
};

} // namespace tarnwick
