// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Alerts.h"

#include <QList>
#include <QWidget>
#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace tarnwick {

/// What the core relies on of alerts.
class AlertsContract
{
public:
    /// In place of a button: the user closes the alert without one.
    static constexpr int NoButton = -1;

    struct Subject
    {
        Alerts& alerts;
        /// Lets the user answer the next modal alert, with the button of this index.
        std::function<void(int button)> willAnswer;
        /// The user answers the sheet that is up, in the same way; false when none is.
        std::function<bool(int button)> answerSheet;
    };

    explicit AlertsContract(Subject subject) : _subject(std::move(subject)) {}

    void run()
    {
        _checkModal();
        _checkSheet();
        _checkWindowThatGoes();
    }

private:
    struct Row
    {
        const char* sentence;
        int buttons;
        int pressed;
        int answer;
    };

    static QList<Row> _rows()
    {
        return {
            {"the first of three", 3, 0, Alert::FirstButtonReturn},
            {"the second of three", 3, 1, Alert::SecondButtonReturn},
            {"the third of three", 3, 2, Alert::ThirdButtonReturn},
            {"three, closed in another way", 3, NoButton, Alert::SecondButtonReturn},
            {"two, closed in another way", 2, NoButton, Alert::SecondButtonReturn},
            {"the only one", 1, 0, Alert::FirstButtonReturn},
            {"one, closed in another way", 1, NoButton, Alert::FirstButtonReturn},
        };
    }

    static Alert _alertWith(int buttons)
    {
        const QStringList titles{QStringLiteral("Open && Settings"), QStringLiteral("Continue"),
                                 QStringLiteral("Quit")};
        return {Alert::Style::Warning, QStringLiteral("May it read?"), QStringLiteral("It needs to."),
                titles.first(buttons)};
    }

    void _checkModal()
    {
        for (const Row& row : _rows()) {
            _subject.willAnswer(row.pressed);
            EXPECT_EQ(_subject.alerts.runModal(_alertWith(row.buttons)), row.answer) << row.sentence;
        }
    }

    void _checkSheet()
    {
        QWidget window;
        window.show();
        for (const Row& row : _rows()) {
            QList<int> answers;
            _subject.alerts.beginSheetModalForWindow(_alertWith(row.buttons), &window,
                                                     [&answers](int answer) { answers.append(answer); });
            EXPECT_TRUE(answers.isEmpty()) << "nobody has answered: " << row.sentence;
            EXPECT_TRUE(_subject.answerSheet(row.pressed)) << row.sentence;
            EXPECT_EQ(answers, QList<int>{row.answer}) << row.sentence;
            EXPECT_FALSE(_subject.answerSheet(row.pressed)) << "it is answered once: " << row.sentence;
        }
    }

    void _checkWindowThatGoes()
    {
        int answers = 0;
        auto window = std::make_unique<QWidget>();
        window->show();
        _subject.alerts.beginSheetModalForWindow(_alertWith(3), window.get(), [&answers](int) { ++answers; });
        window.reset();
        EXPECT_FALSE(_subject.answerSheet(0)) << "its sheet is gone, too";
        EXPECT_EQ(answers, 0);
    }

    Subject _subject;
};

} // namespace tarnwick
