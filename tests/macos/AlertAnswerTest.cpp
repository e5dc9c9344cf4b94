// SPDX-License-Identifier: MIT
#include "platform/macos/session/AlertAnswer.h"

#include "tests/fakes/FakeApplication.h"
#include "tests/fakes/SharedPorts.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace tarnwick {

class AlertAnswerTest : public ::testing::Test
{
protected:
    /// The answer of a system whose modal sessions end with these codes, one after the other.
    [[nodiscard]] qint64 answer(QList<qint64> codes)
    {
        runs = 0;
        return modalAnswer([&] {
            ++runs;
            return codes.takeFirst();
        });
    }

    FakeApplication application;
    SharedPorts ports{application};
    int runs = 0;
};

TEST_F(AlertAnswerTest, alertWhoseLoopIsLeft_isShownUntilItIsAnswered)
{
    EXPECT_EQ(answer({-1002, -1002, 1002, 1000}), 1002);
    EXPECT_EQ(runs, 3);
}

TEST_F(AlertAnswerTest, alertThatIsAnsweredOrEnded_isShownOnce)
{
    for (const qint64 code : {1000, 1001, -1000, -1001}) {
        EXPECT_EQ(answer({code, 1002}), code);
        EXPECT_EQ(runs, 1);
    }
}

TEST_F(AlertAnswerTest, endOfTheProgram_isNotHeldUp)
{
    application.terminate(nullptr);
    EXPECT_EQ(answer({-1002, 1002}), -1002);
    EXPECT_EQ(runs, 1);
}

TEST_F(AlertAnswerTest, alertWithoutAnAnswer_answersAsItsSecondButtonOrItsOnlyOne)
{
    Alert alert;
    alert.buttonTitles = {u"OK"_s};
    EXPECT_EQ(answerOf(alert, -1001), 1000);
    alert.buttonTitles = {u"OK"_s, u"Cancel"_s, u"Other"_s};
    EXPECT_EQ(answerOf(alert, -1001), 1001);
    EXPECT_EQ(answerOf(alert, 1002), 1002);
}

} // namespace tarnwick
