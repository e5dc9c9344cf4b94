// SPDX-License-Identifier: MIT
// The questions that the mirror answers about the application in front and its focused window.
#include "ax/AXValue.h"
#include "tests/unit/menu/MirrorTest.h"

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

class FocusedWindowTest : public MirrorTest
{
protected:
    UIElementRef window(const QString& title, const QString& role)
    {
        return accessibility.addWindow(application, title, role, QRectF(100, 300, 300, 400));
    }
};

} // namespace

TEST_F(FocusedWindowTest, appName_isTheWorkspaces)
{
    workspace.active = Workspace::ActiveApplication{u"Finder"_s, std::nullopt};
    EXPECT_EQ(mirror->focusedAppName(), u"Finder"_s);
    workspace.active.reset();
    EXPECT_EQ(mirror->focusedAppName(), std::nullopt);
}

TEST_F(FocusedWindowTest, titleAndRole_areTexts)
{
    const auto element = window(u"notes.txt"_s, u"window"_s);
    EXPECT_EQ(mirror->focusedWindowTitle(), u"notes.txt"_s);
    EXPECT_EQ(mirror->focusedWindowRole(), u"window"_s);
    accessibility.setAttribute(element, u"AXTitle"_s, 7);
    EXPECT_EQ(mirror->focusedWindowTitle(), u"7"_s);
    accessibility.hideAttribute(element, u"AXTitle"_s);
    EXPECT_EQ(mirror->focusedWindowTitle(), std::nullopt);
    accessibility.hideAttribute(application, u"AXFocusedWindow"_s);
    EXPECT_EQ(mirror->focusedWindowRole(), std::nullopt);
}

TEST_F(FocusedWindowTest, auxiliaryWindow_isToldByRoleAndTitle)
{
    const struct
    {
        const char* sentence;
        QString title; ///< null for none
        QString role;  ///< null for none
        bool auxiliary;
    } rows[] = {
        {"a help window", u"Help"_s, u"window"_s, true},
        {"not one that begins so", u"Helper"_s, u"window"_s, false},
        {"help in another case", u"help"_s, u"window"_s, false},
        {"help with another role", u"Help"_s, u"panel"_s, false},
        {"no role", u"notes.txt"_s, {}, true},
        {"no title", {}, u"window"_s, true},
        {"a sheet", u"notes.txt"_s, u"sheet"_s, true},
        {"a dialog", u"notes.txt"_s, u"dialog"_s, true},
        {"a floating window", u"notes.txt"_s, u"floating window"_s, true},
        {"a dialog in another case", u"notes.txt"_s, u"Dialog"_s, false},
        {"Copy", u"Copy"_s, u"window"_s, true},
        {"not a title that begins with Copy", u"Copy of report"_s, u"window"_s, false},
        {"a context menu", u"contextMenu"_s, u"window"_s, true},
        {"Copying...", u"Copying 3 items"_s, u"window"_s, true},
        {"Copying alone", u"Copying"_s, u"window"_s, true},
        {"Moving...", u"Moving 3 items"_s, u"window"_s, true},
        {"Deleting...", u"Deleting 3 items"_s, u"window"_s, true},
        {"a prefix in another case", u"copying 3 items"_s, u"window"_s, false},
        {"a prefix that does not stand first", u"Not Copying"_s, u"window"_s, false},
        {"Delete", u"Delete"_s, u"window"_s, true},
        {"not a title that begins with Delete", u"Delete all"_s, u"window"_s, false},
        {"Duplicate", u"Duplicate"_s, u"window"_s, true},
        {"a title that begins with Pendrake", u"Pendrake 2"_s, u"window"_s, true},
        {"Pendrake alone", u"Pendrake"_s, u"window"_s, true},
        {"the system's preferences", u"System Preferences"_s, u"window"_s, true},
        {"our own window", u"Tarnwick: Your app's menu. Everywhere."_s, u"window"_s, true},
        {"not any window of ours", u"Tarnwick"_s, u"window"_s, false},
        {"an empty title is one", u""_s, u"window"_s, false},
        {"an ordinary window", u"notes.txt"_s, u"window"_s, false},
    };
    for (const auto& row : rows) {
        const auto element = window(row.title, row.role);
        if (row.role.isNull())
            accessibility.removeAttribute(element, u"AXRoleDescription"_s);
        EXPECT_EQ(mirror->isAuxiliaryWindowActive(), row.auxiliary) << row.sentence;
    }
}

TEST_F(FocusedWindowTest, withoutAFocusedWindow_everythingIsNeutral)
{
    EXPECT_EQ(mirror->focusedWindowTitle(), std::nullopt);
    EXPECT_EQ(mirror->focusedWindowRole(), std::nullopt);
    EXPECT_TRUE(mirror->isAuxiliaryWindowActive());
    EXPECT_FALSE(mirror->isFinderDesktopWindowActive());
    EXPECT_EQ(mirror->focusedWindowFrameNS(), QRectF());
    EXPECT_EQ(mirror->focusedWindowPosition(), QPointF());
    EXPECT_EQ(mirror->focusedWindowTitleFrame(), QRectF());
    EXPECT_EQ(mirror->focusedWindowTitlePosition(), QPointF());
    mirror->setSizeOfFocusedWindowH(1, 2);
    mirror->setPositionOfFocusedWindowY(1, 2);
    EXPECT_TRUE(accessibility.sets.isEmpty());
    EXPECT_EQ(mirror->focusedWindowFrameCG(), QRectF(0, 900, 0, 0)) << "the zero rectangle, converted";
}

TEST_F(FocusedWindowTest, desktopWindow_isToldByApplicationAndRole)
{
    const struct
    {
        const char* sentence;
        QString application;
        QString role;
        bool desktop;
    } rows[] = {
        {"the desktop", u"Finder"_s, u"scroll area"_s, true},
        {"a window of the same application", u"Finder"_s, u"window"_s, false},
        {"the same role elsewhere", u"Editor"_s, u"scroll area"_s, false},
        {"the unknown window of any application", u"Editor"_s, u"AXWindow:AXUnknown"_s, true},
        {"and of this one", u"Finder"_s, u"AXWindow:AXUnknown"_s, true},
    };
    for (const auto& row : rows) {
        accessibility.setAttribute(application, u"AXTitle"_s, row.application);
        window(u"any"_s, row.role);
        EXPECT_EQ(mirror->isFinderDesktopWindowActive(), row.desktop) << row.sentence;
    }
}

TEST_F(FocusedWindowTest, frames_areGivenInBothSpaces)
{
    window(u"notes.txt"_s, u"window"_s);
    EXPECT_EQ(mirror->focusedWindowFrameNS(), QRectF(100, 200, 300, 400));
    EXPECT_EQ(mirror->focusedWindowPosition(), QPointF(100, 200));
    EXPECT_EQ(mirror->focusedWindowFrameCG(), QRectF(100, 300, 300, 400));
    EXPECT_EQ(mirror->focusedWindowPositionCG(), QPointF(100, 300));
}

TEST_F(FocusedWindowTest, conversion_turnsAtTheMainDisplay)
{
    screens.displayBounds = QRectF(0, 0, 1440, 900);
    EXPECT_EQ(mirror->convertNSToCGRectCoords(QRectF(100, 200, 300, 400)), QRectF(100, 300, 300, 400));
    screens.displayBounds = QRectF(0, 50, 1440, 900);
    EXPECT_EQ(mirror->convertNSToCGRectCoords(QRectF(100, 200, 300, 400)), QRectF(100, 350, 300, 400));
    screens.displayBounds = QRectF(0, 0, 100, 16777217);
    EXPECT_EQ(mirror->convertNSToCGRectCoords(QRectF(0, 0, 1, 1)).y(), 16777215)
        << "rounded to single precision";
}

TEST_F(FocusedWindowTest, titleElement_hasAFrameAndAPositionOfItsOwn)
{
    const auto element = window(u"notes.txt"_s, u"window"_s);
    const auto title = accessibility.addElement(element, u"AXStaticText"_s, u"notes.txt"_s);
    accessibility.setAttribute(element, u"AXTitleUIElement"_s, QVariant::fromValue(title));
    EXPECT_EQ(mirror->focusedWindowTitlePosition(), QPointF()) << "it has no position yet";
    accessibility.setAttribute(title, u"AXPosition"_s, QVariant::fromValue(AXValue(QPointF(110, 305))));
    accessibility.setAttribute(title, u"AXSize"_s, QVariant::fromValue(AXValue(QSizeF(50, 20))));
    EXPECT_EQ(mirror->focusedWindowTitlePosition(), QPointF(110, 305)) << "as it was read";
    EXPECT_EQ(mirror->focusedWindowTitleFrame(), QRectF(110, 575, 50, 20));
}

TEST_F(FocusedWindowTest, setters_writeStructuredValuesOfSinglePrecision)
{
    const auto element = window(u"notes.txt"_s, u"window"_s);
    mirror->setSizeOfFocusedWindowH(640.5F, 0.1F);
    mirror->setPositionOfFocusedWindowY(-10, 20);
    EXPECT_EQ(accessibility.attribute(element, u"AXSize"_s).value<AXValue>(),
              AXValue(QSizeF(640.5, static_cast<double>(0.1F))));
    EXPECT_EQ(accessibility.attribute(element, u"AXPosition"_s).value<AXValue>(), AXValue(QPointF(-10, 20)));
}
