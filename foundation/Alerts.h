// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/SharedPort.h"

#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

namespace tarnwick {

/// What an alert shows. The numbers are the platform's.
struct Alert
{
    enum class Style { Warning = 0, Informational = 1, Critical = 2 };
    enum ReturnCode { FirstButtonReturn = 1000, SecondButtonReturn = 1001, ThirdButtonReturn = 1002 };

    Style style = Style::Warning;
    QString messageText;
    QString informativeText;
    QStringList buttonTitles; ///< first the default button
};

/// Alerts to the user. GUI thread only.
class Alerts : public SharedPort<Alerts>
{
public:
    virtual ~Alerts() = default;

    /// Shows `alert` in front and waits for the answer: 1000 for the first button, one more for each next.
    /// Closing it in another way answers as the second button, or the first where there is one only.
    virtual int runModal(const Alert& alert) = 0;

    /// Shows `alert` attached to `window`, blocking that window only, and returns at once; `didEnd` runs
    /// later with the answer, never after `window` is gone.
    virtual void beginSheetModalForWindow(const Alert& alert, QWidget* window,
                                          std::function<void(int returnCode)> didEnd) = 0;
};

} // namespace tarnwick
