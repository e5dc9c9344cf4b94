// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Alerts.h"
#include "tests/fakes/Journal.h"

#include <QList>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <utility>

namespace tarnwick {

/// A user who answers alerts as the test says.
class FakeAlerts final : public Alerts
{
public:
    int answer = Alert::SecondButtonReturn; ///< lever: what the user answers to a modal alert
    std::function<void()> whileShown;       ///< lever: what happens while a modal alert is up
    QList<Alert> shown;                     ///< look: all alerts, modal ones and sheets
    Journal* journal = nullptr;             ///< "alert"

    /// Look: the window of the sheet that is up; null when none is.
    [[nodiscard]] QWidget* sheetWindow() const { return _sheetWindow; }

    /// Lever: the user answers the sheet; false when none is up.
    bool endSheet(int returnCode)
    {
        const auto didEnd = std::exchange(_sheetDidEnd, nullptr);
        if (!didEnd || !_sheetWindow)
            return false;
        _sheetWindow.clear();
        didEnd(returnCode);
        return true;
    }

    int runModal(const Alert& alert) override
    {
        shown.append(alert);
        note(journal, QStringLiteral("alert"));
        if (whileShown)
            whileShown();
        return answer;
    }

    void beginSheetModalForWindow(const Alert& alert, QWidget* window,
                                  std::function<void(int returnCode)> didEnd) override
    {
        shown.append(alert);
        note(journal, QStringLiteral("sheet"));
        _sheetWindow = window;
        _sheetDidEnd = std::move(didEnd);
    }

private:
    QPointer<QWidget> _sheetWindow;
    std::function<void(int)> _sheetDidEnd;
};

} // namespace tarnwick
