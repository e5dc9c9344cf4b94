// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Alerts.h"
#include "tests/fakes/Journal.h"

#include <QList>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <optional>
#include <utility>

namespace tarnwick {

/// A user who answers alerts as the test says.
class FakeAlerts final : public Alerts
{
public:
    std::optional<int> answer;        ///< lever: of the user to a modal alert; nothing closes it without one
    std::function<void()> whileShown; ///< lever: what happens while a modal alert is up
    QList<Alert> shown;               ///< look: all alerts, modal ones and sheets
    Journal* journal = nullptr;       ///< "alert"

    /// Look: the window of the sheet that is up; null when none is.
    [[nodiscard]] QWidget* sheetWindow() const { return _sheetWindow; }

    /// Lever: the user answers the sheet, or closes it without an answer; false when none is up.
    bool endSheet(std::optional<int> returnCode)
    {
        const auto didEnd = std::exchange(_sheetDidEnd, nullptr);
        if (!didEnd || !_sheetWindow)
            return false;
        _sheetWindow.clear();
        didEnd(returnCode.value_or(_closedWithout(_sheet)));
        return true;
    }

    int runModal(const Alert& alert) override
    {
        shown.append(alert);
        note(journal, QStringLiteral("alert"));
        if (whileShown)
            whileShown();
        return answer.value_or(_closedWithout(alert));
    }

    void beginSheetModalForWindow(const Alert& alert, QWidget* window,
                                  std::function<void(int returnCode)> didEnd) override
    {
        shown.append(alert);
        note(journal, QStringLiteral("sheet"));
        _sheet = alert;
        _sheetWindow = window;
        _sheetDidEnd = std::move(didEnd);
    }

private:
    static int _closedWithout(const Alert& alert)
    {
        return alert.buttonTitles.size() > 1 ? Alert::SecondButtonReturn : Alert::FirstButtonReturn;
    }

    Alert _sheet;
    QPointer<QWidget> _sheetWindow;
    std::function<void(int)> _sheetDidEnd;
};

} // namespace tarnwick
