// SPDX-License-Identifier: MIT
#include "platform/qt/application/QtAlerts.h"
#include "tests/contract/foundation/AlertsContract.h"
#include "tests/fakes/FakeAlerts.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

using namespace tarnwick;

namespace {

/// Null when there is none.
QMessageBox* shownBox()
{
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows)
        if (auto* box = qobject_cast<QMessageBox*>(window); box && box->isVisible())
            return box;
    return nullptr;
}

bool answer(int button)
{
    QMessageBox* box = shownBox();
    if (!box)
        return false;
    if (button == AlertsContract::NoButton)
        box->close();
    else
        box->buttons().at(button)->click();
    return true;
}

std::optional<int> codeOf(int button)
{
    return button == AlertsContract::NoButton ? std::nullopt
                                              : std::optional(Alert::FirstButtonReturn + button);
}

TEST(Alerts, fake_keepsTheContract)
{
    FakeAlerts alerts;
    AlertsContract contract(
        {.alerts = alerts,
         .willAnswer = [&alerts](int button) { alerts.answer = codeOf(button); },
         .answerSheet = [&alerts](int button) { return alerts.endSheet(codeOf(button)); }});
    contract.run();
}

TEST(Alerts, messageBoxes_keepTheContract)
{
    QtAlerts alerts;
    AlertsContract contract(
        {.alerts = alerts,
         .willAnswer = [](int button) { QTimer::singleShot(0, [button] { EXPECT_TRUE(answer(button)); }); },
         .answerSheet = answer});
    contract.run();
}

} // namespace
