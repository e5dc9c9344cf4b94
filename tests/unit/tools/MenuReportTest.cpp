// SPDX-License-Identifier: MIT
#include "tools/MenuReport.h"

#include "menu/AppAccessibility.h"
#include "tests/fakes/FakeAccessibility.h"
#include "tests/fakes/FakeFonts.h"
#include "tests/fakes/FakeWorkspace.h"
#include "tests/fakes/SharedPorts.h"
#include "tools/ChosenApplication.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace tarnwick;

namespace {

/// "Ctrl+S" for the key equivalent "s"; enough to see that it gets into the report.
QString keyText(const QString& keyEquivalent, quint64 /*modifierMask*/)
{
    return keyEquivalent.isEmpty() ? QString() : u"Ctrl+"_s + keyEquivalent.toUpper();
}

class MenuReportTest : public ::testing::Test
{
protected:
    std::unique_ptr<AppAccessibility> mirrorOf(const QString& menu)
    {
        const auto application = accessibility.addApplication(7, u"Editor"_s);
        accessibility.setMenuBar(application, MenuFile::parse(menu));
        accessibility.setFocusedApplication(application);
        auto mirror = AppAccessibility::initWithFocusedApp();
        mirror->setKeyEquivalents(true);
        mirror->update();
        return mirror;
    }

    QList<ReportedEntry> entriesOf(const QString& menu, bool all = true)
    {
        const auto mirror = mirrorOf(menu);
        return MenuReport(*mirror, keyText, [this] { ++breaths; }).read(all);
    }

    FakeAccessibility accessibility;
    FakeWorkspace workspace;
    FakeFonts fonts;
    SharedPorts sharedPorts{accessibility, workspace, fonts};
    int breaths = 0;
};

} // namespace

TEST_F(MenuReportTest, text_ofAWholeMenuBar_isTheMenuFileThatItWasMadeOf)
{
    const QString menu = u"File\n"
                         "  New\tCtrl+N\n"
                         "  Open Recent\n"
                         "    -notes.txt\n"
                         "  ---\n"
                         "  Save\tCtrl+S\n"
                         "View\n"
                         "  *Word Wrap\n"
                         "  -*Status Bar\n"_s;
    EXPECT_EQ(MenuReport::text(entriesOf(menu)), menu);
}

TEST_F(MenuReportTest, text_quotesWhatWouldReadAsSomethingElse)
{
    const QString menu = u"File\n"
                         "  \\-dash\n"
                         "  \\*star\n"
                         "  \\+plus\n"
                         "  \\#hash\n"
                         "  back\\\\slash\n"
                         "  two\\nlines\n"_s;
    EXPECT_EQ(MenuReport::text(entriesOf(menu)), menu);
}

TEST_F(MenuReportTest, read_withoutAll_staysAtTheFirstLevel)
{
    const auto entries = entriesOf(u"File\n  New\nEdit\n"_s, false);
    ASSERT_EQ(entries.size(), 2);
    EXPECT_TRUE(entries[0].hasSubmenu);
    EXPECT_TRUE(entries[0].entries.isEmpty());
    EXPECT_EQ(breaths, 0);
    EXPECT_FALSE(MenuReport::json(entries)[0].toObject().contains(u"entries"_s));
}

TEST_F(MenuReportTest, read_letsTheEventLoopComeRoundBeforeEachSubmenu)
{
    entriesOf(u"File\n  Recent\n    one\nEdit\n  Undo\n"_s);
    EXPECT_EQ(breaths, 3);
}

TEST_F(MenuReportTest, json_saysTheSame)
{
    const auto json = MenuReport::json(entriesOf(u"File\n  New\tCtrl+N\n  ---\n  -*Old\n"_s));
    EXPECT_EQ(QJsonDocument(json).toJson(QJsonDocument::Compact).toStdString(),
              R"([{"checked":false,"enabled":true,"entries":[)"
              R"({"checked":false,"enabled":true,"keyEquivalent":"Ctrl+N","title":"New"},{"separator":true},)"
              R"({"checked":true,"enabled":false,"title":"Old"}],"submenu":true,"title":"File"}])");
}

TEST_F(MenuReportTest, chosenApplication_isTheFocusedOne_andIsNeverChanged)
{
    const auto front = accessibility.addApplication(7, u"Editor"_s);
    const auto other = accessibility.addApplication(8, u"Viewer"_s);
    accessibility.setFocusedApplication(front);
    accessibility.setMenuBar(other, MenuFile::parse(u"Go\n  Home\n"_s));
    ChosenApplicationAccessibility chosen(accessibility, 8);
    const auto focused = chosen.copyAttributeValue(chosen.createSystemWide(), u"AXFocusedApplication"_s);
    ASSERT_TRUE(focused.has_value());
    EXPECT_EQ(focused->value<UIElementRef>(), other);
    EXPECT_EQ(chosen.copyAttributeValue(other, AXTitleAttribute)->toString(), u"Viewer"_s);

    EXPECT_FALSE(chosen.performAction(accessibility.menuItem(other, {u"Go"_s, u"Home"_s}), AXPressAction));
    EXPECT_FALSE(chosen.setAttributeValue(other, AXTitleAttribute, u"x"_s));
    EXPECT_TRUE(accessibility.presses.isEmpty());
    EXPECT_TRUE(accessibility.sets.isEmpty());
}
