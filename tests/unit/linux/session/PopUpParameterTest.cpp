// SPDX-License-Identifier: MIT
#include "platform/linux/session/PopUpParameter.h"

#include <QVariantMap>
#include <gtest/gtest.h>

#include <limits>

using namespace tarnwick;
using namespace Qt::StringLiterals;

TEST(PopUpParameter, eachField_isTakenByItself_orCountsAsMissing)
{
    struct Row
    {
        const char* name;
        QVariantMap told;
        FrontHint hint;
    };
    const int least = std::numeric_limits<int>::min();
    const Row rows[] = {
        {"nothing", {}, {}},
        {"all",
         {{u"x"_s, 10}, {u"y"_s, 20}, {u"pid"_s, 300}, {u"title"_s, u"Notes"_s}},
         {QPoint(10, 20), 300, u"Notes"_s}},
        {"the left upper corner", {{u"x"_s, 0}, {u"y"_s, 0}}, {QPoint(0, 0), {}, {}}},
        {"a place left of the first monitor", {{u"x"_s, least}, {u"y"_s, -1}}, {QPoint(least, -1), {}, {}}},
        {"x alone", {{u"x"_s, 10}, {u"pid"_s, 300}}, {{}, 300, {}}},
        {"y alone", {{u"y"_s, 10}, {u"title"_s, u"Notes"_s}}, {{}, {}, u"Notes"_s}},
        {"a text for x", {{u"x"_s, u"10"_s}, {u"y"_s, 20}}, {}},
        {"a fraction for y", {{u"x"_s, 10}, {u"y"_s, 20.5}}, {}},
        {"a wide number for x", {{u"x"_s, qint64(10)}, {u"y"_s, 20}}, {}},
        {"no process", {{u"pid"_s, 0}, {u"title"_s, u"Notes"_s}}, {{}, {}, u"Notes"_s}},
        {"a group of processes", {{u"pid"_s, -300}}, {}},
        {"a text for the process", {{u"pid"_s, u"300"_s}}, {}},
        {"a number for the title", {{u"pid"_s, 300}, {u"title"_s, 5}}, {{}, 300, {}}},
        {"an empty title", {{u"title"_s, QString()}}, {}},
        {"what nobody knows", {{u"window"_s, 5}, {u"pid"_s, 300}}, {{}, 300, {}}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(popUpParameter({row.told}), row.hint);
    }
}

TEST(PopUpParameter, whatIsNotOneMap_tellsNothing)
{
    const QVariantMap map{{u"pid"_s, 300}};
    EXPECT_EQ(popUpParameter({}), FrontHint());
    EXPECT_EQ(popUpParameter({300}), FrontHint());
    EXPECT_EQ(popUpParameter({u"pid"_s}), FrontHint());
    EXPECT_EQ(popUpParameter({map, map}), FrontHint());
}
