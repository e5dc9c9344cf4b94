// SPDX-License-Identifier: MIT
#include "ax/UIElementUtilities.h"

#include "tests/fakes/FakeAccessibility.h"
#include "tests/fakes/FakeScreens.h"
#include "tests/fakes/SharedPorts.h"
#include "tests/unit/foundation/CommaLocale.h"

#include <gtest/gtest.h>

#include <limits>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

using Utilities = UIElementUtilities;

const QString Value = u"AXValue"_s;

QVariant boxed(const AXValue& value)
{
    return QVariant::fromValue(value);
}

class UIElementUtilitiesTest : public ::testing::Test
{
protected:
    UIElementUtilitiesTest()
    {
        application = accessibility.addApplication(1234, u"Editor"_s);
        element = accessibility.addElement(application, u"AXButton"_s, u"Open"_s);
    }
    /// What is stored after `text` was written over `current`.
    QVariant written(const QVariant& current, const QString& text)
    {
        accessibility.setAttribute(element, Value, current);
        accessibility.setSettable(element, Value);
        Utilities::setStringValueForAttributeOfUIElement(text, Value, element);
        return accessibility.attribute(element, Value);
    }

    FakeAccessibility accessibility;
    FakeScreens screens;
    SharedPorts sharedPorts{accessibility, screens};
    UIElementRef application;
    UIElementRef element;
};

} // namespace

TEST_F(UIElementUtilitiesTest, neutralResults_forAnElementThatIsGone)
{
    accessibility.quit(application);
    for (const UIElementRef& gone : {element, UIElementRef()}) {
        EXPECT_EQ(Utilities::processIdentifierOfUIElement(gone), 0);
        EXPECT_EQ(Utilities::attributeNamesOfUIElement(gone), std::nullopt);
        EXPECT_EQ(Utilities::actionNamesOfUIElement(gone), std::nullopt);
        EXPECT_EQ(Utilities::descriptionOfActionOfUIElement(AXPressAction, gone), std::nullopt);
        EXPECT_FALSE(Utilities::valueOfAttributeOfUIElement(AXTitleAttribute, gone).isValid());
        EXPECT_FALSE(Utilities::canSetAttributeOfUIElement(Value, gone));
        EXPECT_FALSE(Utilities::titleOfUIElement(gone).isValid());
        EXPECT_FALSE(Utilities::roleOfUIElement(gone).isValid());
        EXPECT_FALSE(Utilities::parentOfUIElement(gone).isValid());
        EXPECT_FALSE(Utilities::isApplicationUIElement(gone));
        EXPECT_EQ(Utilities::descriptionForUIElementAttributeBeingVerbose(gone, AXChildrenAttribute, false),
                  std::nullopt);
        EXPECT_EQ(Utilities::descriptionOfAXDescriptionOfUIElement(gone), u"No Description"_s);
        EXPECT_EQ(Utilities::frameOfUIElement(gone), QRectF());
        Utilities::performActionOfUIElement(AXPressAction, gone);
        Utilities::setStringValueForAttributeOfUIElement(u"1"_s, Value, gone);
    }
    EXPECT_TRUE(accessibility.presses.isEmpty());
    EXPECT_TRUE(accessibility.sets.isEmpty());
    EXPECT_EQ(Utilities::lineageOfUIElement(UIElementRef()), QStringList());
    EXPECT_EQ(Utilities::stringDescriptionOfUIElement(UIElementRef()), QString());
}

TEST_F(UIElementUtilitiesTest, plainQueries_giveWhatThePlatformGives)
{
    accessibility.addAction(element, AXPressAction, u"press it"_s);
    accessibility.setAttribute(element, Value, 1);
    accessibility.setSettable(element, Value);
    EXPECT_EQ(Utilities::processIdentifierOfUIElement(element), 1234);
    EXPECT_EQ(Utilities::attributeNamesOfUIElement(element),
              (QStringList{u"AXRole"_s, u"AXTitle"_s, u"AXParent"_s, u"AXValue"_s}));
    EXPECT_EQ(Utilities::actionNamesOfUIElement(element), QStringList{AXPressAction});
    EXPECT_EQ(Utilities::descriptionOfActionOfUIElement(AXPressAction, element), u"press it"_s);
    EXPECT_TRUE(Utilities::canSetAttributeOfUIElement(Value, element));
    EXPECT_FALSE(Utilities::canSetAttributeOfUIElement(AXTitleAttribute, element));
    EXPECT_EQ(Utilities::titleOfUIElement(element), u"Open"_s);
    EXPECT_EQ(Utilities::roleOfUIElement(element), u"AXButton"_s);
    EXPECT_EQ(Utilities::parentOfUIElement(element).value<UIElementRef>(), application);
    EXPECT_TRUE(Utilities::isApplicationUIElement(application));
    EXPECT_FALSE(Utilities::isApplicationUIElement(element));
    Utilities::performActionOfUIElement(AXPressAction, element);
    EXPECT_EQ(accessibility.pressedTitles(), QStringList{u"Open"_s});
}

TEST_F(UIElementUtilitiesTest, safeRead_ofAnAttributeThatIsNotListed_doesNotAskForIt)
{
    accessibility.hideAttribute(element, AXTitleAttribute);
    accessibility.calls = {};
    EXPECT_FALSE(Utilities::valueOfAttributeOfUIElement(AXTitleAttribute, element).isValid());
    EXPECT_EQ(accessibility.calls.attributeNames, 1);
    EXPECT_EQ(accessibility.calls.attributeValues, 0);
}

TEST_F(UIElementUtilitiesTest, safeRead_withoutNames_orWithAnError_isNothing)
{
    accessibility.failAttribute(element, AXTitleAttribute);
    EXPECT_FALSE(Utilities::valueOfAttributeOfUIElement(AXTitleAttribute, element).isValid());
    EXPECT_EQ(accessibility.calls.attributeValues, 1);
    accessibility.failAttributeNames(element);
    EXPECT_FALSE(Utilities::valueOfAttributeOfUIElement(AXRoleAttribute, element).isValid());
    EXPECT_EQ(accessibility.calls.attributeValues, 1) << "without names nothing is asked for";
}

TEST_F(UIElementUtilitiesTest, safeRead_matchesTheNameExactly)
{
    EXPECT_FALSE(Utilities::valueOfAttributeOfUIElement(u"axtitle"_s, element).isValid());
    EXPECT_FALSE(Utilities::valueOfAttributeOfUIElement(u"AXTitl"_s, element).isValid());
    EXPECT_FALSE(Utilities::valueOfAttributeOfUIElement(QString(), element).isValid());
}

TEST_F(UIElementUtilitiesTest, structuredValue_isDescribedInBothForms)
{
    const struct
    {
        AXValue value;
        QString verbose;
        QString terse;
    } rows[] = {
        {AXValue(QPointF(1.5, -2)), u"<AXPointValue x=1.5 y=-2>"_s, u"x=1.5 y=-2"_s},
        {AXValue(QSizeF(300, 1e6)), u"<AXSizeValue w=300 h=1e+06>"_s, u"w=300 h=1e+06"_s},
        {AXValue(QRectF(1, 2, 3, 4)), u"<AXRectValue  x=1 y=2 w=3 h=4>"_s, u"x=1 y=2 w=3 h=4"_s},
        {AXValue(AXRange{-5, std::numeric_limits<qint64>::max()}),
         u"<AXRangeValue pos=-5 len=9223372036854775807>"_s, u"pos=-5 len=9223372036854775807"_s},
        {AXValue(), u"AXValue???"_s, u"AXValue???"_s},
    };
    for (const auto& [value, verbose, terse] : rows) {
        EXPECT_EQ(Utilities::stringDescriptionOfAXValueBeingVerbose(value, true), verbose);
        EXPECT_EQ(Utilities::stringDescriptionOfAXValueBeingVerbose(value, false), terse);
        EXPECT_EQ(Utilities::descriptionOfValueBeingVerbose(boxed(value), true), verbose);
        EXPECT_EQ(Utilities::descriptionOfValueBeingVerbose(boxed(value), false), terse);
    }
}

TEST_F(UIElementUtilitiesTest, otherValue_describesItself)
{
    const struct
    {
        QVariant value;
        std::optional<QString> description;
    } rows[] = {
        {QVariant(), std::nullopt},
        {u"text"_s, u"text"_s},
        {u""_s, u""_s},
        {QVariantList(), u"<array of size 0>"_s},
        {QVariantList{1, 2, 3}, u"<array of size 3>"_s},
        {true, u"1"_s},
        {false, u"0"_s},
        {123, u"123"_s},
        {-8, u"-8"_s},
        {std::numeric_limits<quint64>::max(), u"18446744073709551615"_s},
        {12.5, u"12.5"_s},
        {100000.0, u"100000"_s},
        {0.1F, u"0.1"_s},
    };
    for (const auto& [value, description] : rows)
        EXPECT_EQ(Utilities::descriptionOfValueBeingVerbose(value, false), description);
}

TEST_F(UIElementUtilitiesTest, element_isDescribedByItsTitle_elseByItsRole)
{
    EXPECT_EQ(Utilities::descriptionOfValueBeingVerbose(QVariant::fromValue(element), true), u"Open"_s);
    accessibility.setAttribute(element, AXTitleAttribute, u""_s);
    EXPECT_EQ(Utilities::descriptionOfValueBeingVerbose(element, false), u""_s)
        << "an empty title is a title";
    accessibility.hideAttribute(element, AXTitleAttribute);
    EXPECT_EQ(Utilities::descriptionOfValueBeingVerbose(element, false), u"AXButton"_s);
    accessibility.hideAttribute(element, AXRoleAttribute);
    EXPECT_EQ(Utilities::descriptionOfValueBeingVerbose(element, false), u"AXButton"_s)
        << "the role is read as it is, listed or not";
    accessibility.failAttribute(element, AXRoleAttribute);
    accessibility.setAttribute(element, u"AXHelp"_s, u"help"_s);
    EXPECT_EQ(Utilities::descriptionOfValueBeingVerbose(element, false), u"<AXUIElement>"_s);
    EXPECT_EQ(Utilities::descriptionOfValueBeingVerbose(UIElementRef(), false), std::nullopt);
    EXPECT_EQ(Utilities::descriptionOfValueBeingVerbose(QVariant::fromValue(UIElementRef()), false),
              std::nullopt);
}

TEST_F(UIElementUtilitiesTest, arrayAttributes_areCountedAndNotFetched)
{
    accessibility.setAttribute(element, AXRowsAttribute, QVariantList{1, 2});
    accessibility.calls = {};
    EXPECT_EQ(
        Utilities::descriptionForUIElementAttributeBeingVerbose(application, AXChildrenAttribute, false),
        u"<array of size 1>"_s);
    EXPECT_EQ(Utilities::descriptionForUIElementAttributeBeingVerbose(element, AXRowsAttribute, true),
              u"<array of size 2>"_s);
    EXPECT_EQ(accessibility.calls.attributeValues, 0);

    accessibility.setAttribute(element, AXRowsAttribute, u"no array"_s);
    EXPECT_EQ(Utilities::descriptionForUIElementAttributeBeingVerbose(element, AXRowsAttribute, false),
              u"no array"_s)
        << "what cannot be counted is read";
    accessibility.setAttribute(element, u"AXColumns"_s, QVariantList{1, 2});
    EXPECT_EQ(Utilities::descriptionForUIElementAttributeBeingVerbose(element, u"AXColumns"_s, false),
              u"<array of size 2>"_s);
}

TEST_F(UIElementUtilitiesTest, attributeDescription_readsDirectly)
{
    accessibility.setAttribute(element, Value, boxed(AXValue(QPointF(1, 2))));
    accessibility.hideAttribute(element, Value);
    EXPECT_EQ(Utilities::descriptionForUIElementAttributeBeingVerbose(element, Value, true),
              u"<AXPointValue x=1 y=2>"_s);
    accessibility.failAttribute(element, Value);
    EXPECT_EQ(Utilities::descriptionForUIElementAttributeBeingVerbose(element, Value, false), std::nullopt);
    EXPECT_EQ(Utilities::descriptionForUIElementAttributeBeingVerbose(element, u"AXNone"_s, false),
              std::nullopt);
}

TEST_F(UIElementUtilitiesTest, accessibilityDescription_isItsTextOrNoDescription)
{
    EXPECT_EQ(Utilities::descriptionOfAXDescriptionOfUIElement(element), u"No Description"_s);
    accessibility.setAttribute(element, AXDescriptionAttribute, u""_s);
    EXPECT_EQ(Utilities::descriptionOfAXDescriptionOfUIElement(element), u"No Description"_s);
    accessibility.setAttribute(element, AXDescriptionAttribute, u"opens a file"_s);
    EXPECT_EQ(Utilities::descriptionOfAXDescriptionOfUIElement(element), u"opens a file"_s);
    accessibility.setAttribute(element, AXDescriptionAttribute, 7);
    EXPECT_EQ(Utilities::descriptionOfAXDescriptionOfUIElement(element), u"7"_s);
    accessibility.hideAttribute(element, AXDescriptionAttribute);
    EXPECT_EQ(Utilities::descriptionOfAXDescriptionOfUIElement(element), u"No Description"_s);
}

TEST_F(UIElementUtilitiesTest, lineage_runsFromTheApplicationDownToTheElement)
{
    const auto inner = accessibility.addElement(element, u"AXImage"_s);
    EXPECT_EQ(Utilities::lineageOfUIElement(inner), (QStringList{u"Editor"_s, u"Open"_s, u"AXImage"_s}));
    EXPECT_EQ(Utilities::lineageDescriptionOfUIElement(inner), u"Editor\n Open\n  AXImage\n"_s);
}

TEST_F(UIElementUtilitiesTest, lineage_withoutAParent_isTheElementAlone)
{
    EXPECT_EQ(Utilities::lineageOfUIElement(application), QStringList{u"Editor"_s});
    EXPECT_EQ(Utilities::lineageDescriptionOfUIElement(application), u"Editor\n"_s);
    accessibility.setAttribute(element, AXParentAttribute, u"not an element"_s);
    EXPECT_EQ(Utilities::lineageOfUIElement(element), QStringList{u"Open"_s});
}

TEST_F(UIElementUtilitiesTest, lineage_hasNoLimitOfDepth)
{
    UIElementRef inner = element;
    for (int i = 0; i < 1000; ++i)
        inner = accessibility.addElement(inner, u"AXGroup"_s);
    EXPECT_EQ(Utilities::lineageOfUIElement(inner).size(), 1002);
}

TEST_F(UIElementUtilitiesTest, lineage_ofAnElementThatIsItsOwnAncestor_ends)
{
    accessibility.setAttribute(application, AXParentAttribute, QVariant::fromValue(element));
    EXPECT_EQ(Utilities::lineageOfUIElement(element), (QStringList{u"Editor"_s, u"Open"_s}));
    accessibility.setAttribute(application, AXParentAttribute, QVariant::fromValue(application));
    EXPECT_EQ(Utilities::lineageOfUIElement(application), QStringList{u"Editor"_s});
}

TEST_F(UIElementUtilitiesTest, fullReport_listsLineageAttributesAndActions)
{
    accessibility.setAttribute(element, AXPositionAttribute, boxed(AXValue(QPointF(3, 4))));
    accessibility.setSettable(element, AXPositionAttribute);
    accessibility.setAttribute(element, AXChildrenAttribute, QVariantList{1, 2});
    accessibility.failAttribute(element, u"AXHelp"_s);
    accessibility.addAction(element, AXPressAction, u"press"_s);
    accessibility.addAction(element, u"AXShowMenu"_s, u"show menu"_s);
    EXPECT_EQ(Utilities::stringDescriptionOfUIElement(element), u"Editor\n"
                                                                " Open\n"
                                                                "\n"
                                                                "Attributes:\n"
                                                                "   AXRole:  “AXButton”\n"
                                                                "   AXTitle:  “Open”\n"
                                                                "   AXParent:  “Editor”\n"
                                                                "   AXPosition (W):  “x=3 y=4”\n"
                                                                "   AXChildren:  “<array of size 2>”\n"
                                                                "   AXHelp:  “(null)”\n"
                                                                "\n"
                                                                "Actions:\n"
                                                                "   AXPress - press\n"
                                                                "   AXShowMenu - show menu\n"_s);
}

TEST_F(UIElementUtilitiesTest, fullReport_leavesOutTheHeadersOfWhatThereIsNot)
{
    EXPECT_FALSE(Utilities::stringDescriptionOfUIElement(element).contains(u"Actions"_s));
    accessibility.failAttributeNames(element);
    EXPECT_EQ(Utilities::stringDescriptionOfUIElement(element), u"AXButton\n"_s);
}

TEST_F(UIElementUtilitiesTest, writingText_followsTheTypeOfThePresentValue)
{
    const AXValue point(QPointF(9, 9));
    const AXValue size(QSizeF(9, 9));
    const AXValue rect(QRectF(9, 9, 9, 9));
    const AXValue range(AXRange{9, 9});
    const struct
    {
        const char* sentence;
        QVariant current;
        QString text;
        QVariant stored;
    } rows[] = {
        {"a point", boxed(point), u"x=1.5 y=-2"_s, boxed(AXValue(QPointF(1.5, -2)))},
        {"a size", boxed(size), u"w=300 h=20"_s, boxed(AXValue(QSizeF(300, 20)))},
        {"a rectangle", boxed(rect), u"x=1 y=2 w=3 h=4"_s, boxed(AXValue(QRectF(1, 2, 3, 4)))},
        {"a range", boxed(range), u"pos=-5 len=7"_s, boxed(AXValue(AXRange{-5, 7}))},
        {"numbers are of single precision", boxed(point), u"x=0.1 y=16777217"_s,
         boxed(AXValue(QPointF(static_cast<double>(0.1F), 16777216)))},
        {"fields that do not match are 0", boxed(rect), u"x=1 y=2 width=3"_s,
         boxed(AXValue(QRectF(1, 2, 0, 0)))},
        {"a text of another kind writes zeros", boxed(point), u"w=1 h=2"_s, boxed(AXValue(QPointF(0, 0)))},
        {"an empty text writes zeros", boxed(size), u""_s, boxed(AXValue(QSizeF(0, 0)))},
        {"a text ends at its first null character", boxed(point), u"x=1\0 y=2"_s,
         boxed(AXValue(QPointF(1, 0)))},
        {"a range beyond 64 bits is kept within", boxed(range), u"pos=99999999999999999999 len=1"_s,
         boxed(AXValue(AXRange{std::numeric_limits<qint64>::max(), 1}))},
        {"a text", u"before"_s, u"after"_s, u"after"_s},
        {"a text that looks like a number", u"before"_s, u"12.5"_s, u"12.5"_s},
        {"an integer becomes a float", 3, u"12.5"_s, 12.5F},
        {"a double becomes a float", 3.0, u"0.1"_s, 0.1F},
        {"a boolean becomes a float", true, u"1"_s, 1.0F},
        {"no number is 0", 3, u"many"_s, 0.0F},
        {"a decimal comma ends a number", 3, u"12,5"_s, 12.0F},
        {"nothing else is written: an array", QVariantList{1}, u"1"_s, QVariantList{1}},
        {"nothing else is written: an empty structured value", boxed(AXValue()), u"x=1 y=2"_s,
         boxed(AXValue())},
    };
    for (const auto& row : rows) {
        const QVariant stored = written(row.current, row.text);
        EXPECT_EQ(stored.typeId(), row.stored.typeId()) << row.sentence;
        if (row.stored.metaType() == QMetaType::fromType<AXValue>())
            EXPECT_EQ(stored.value<AXValue>(), row.stored.value<AXValue>()) << row.sentence;
        else
            EXPECT_EQ(stored, row.stored) << row.sentence;
    }
}

TEST_F(UIElementUtilitiesTest, writingText_overAnElementOrNothing_setsNothing)
{
    written(QVariant::fromValue(application), u"Editor"_s);
    written(QVariantList(), u"Editor"_s);
    Utilities::setStringValueForAttributeOfUIElement(u"1"_s, u"AXNone"_s, element);
    Utilities::setStringValueForAttributeOfUIElement(u"1"_s, QString(), element);
    accessibility.failAttribute(element, AXTitleAttribute);
    Utilities::setStringValueForAttributeOfUIElement(u"1"_s, AXTitleAttribute, element);
    EXPECT_TRUE(accessibility.sets.isEmpty());
}

TEST_F(UIElementUtilitiesTest, writingText_readsThePresentValueDirectly_andIgnoresARefusal)
{
    accessibility.setAttribute(element, Value, u"before"_s);
    accessibility.hideAttribute(element, Value);
    Utilities::setStringValueForAttributeOfUIElement(u"after"_s, Value, element);
    EXPECT_EQ(accessibility.sets.size(), 1);
    EXPECT_EQ(accessibility.attribute(element, Value), u"before"_s) << "it cannot be set";
}

TEST_F(UIElementUtilitiesTest, terseText_writtenBack_restoresTheValue)
{
    const AXValue rect(QRectF(-12.25, 1024.5, 333333, 0.5));
    const QString terse = Utilities::stringDescriptionOfAXValueBeingVerbose(rect, false);
    EXPECT_EQ(terse, u"x=-12.25 y=1024.5 w=333333 h=0.5"_s);
    EXPECT_EQ(written(boxed(AXValue(QRectF())), terse).value<AXValue>(), rect);
}

TEST_F(UIElementUtilitiesTest, textsUnderADecimalComma_stayTheSame)
{
    const CommaLocale german;
    if (!german.inEffect()) {
        ASSERT_FALSE(CommaLocale::required()) << CommaLocale::whyMissing;
        GTEST_SKIP() << CommaLocale::whyMissing;
    }
    const AXValue point(QPointF(1.5, -2.25));
    EXPECT_EQ(Utilities::stringDescriptionOfAXValueBeingVerbose(point, true),
              u"<AXPointValue x=1.5 y=-2.25>"_s);
    EXPECT_EQ(written(boxed(AXValue(QPointF())), u"x=1.5 y=-2.25"_s).value<AXValue>(), point);
    EXPECT_EQ(written(3, u"12.5"_s), 12.5F);
    EXPECT_EQ(Utilities::descriptionOfValueBeingVerbose(QVariant(1234.5), false), u"1234.5"_s);
    EXPECT_EQ(Utilities::descriptionOfValueBeingVerbose(QVariant(1234567), false), u"1234567"_s);
}

TEST_F(UIElementUtilitiesTest, frame_isFlippedIntoWindowSystemSpace)
{
    accessibility.setAttribute(element, AXPositionAttribute, boxed(AXValue(QPointF(100, 300))));
    EXPECT_EQ(Utilities::frameOfUIElement(element), QRectF()) << "without a size";
    accessibility.setAttribute(element, AXSizeAttribute, boxed(AXValue(QSizeF(30, 40))));
    EXPECT_EQ(Utilities::frameOfUIElement(element), QRectF(100, 560, 30, 40));
    accessibility.hideAttribute(element, AXPositionAttribute);
    EXPECT_EQ(Utilities::frameOfUIElement(element), QRectF()) << "without a position";
}

TEST_F(UIElementUtilitiesTest, frame_ofValuesThatAreNotOfTheirTypes_isFlippedAsFarAsItIsKnown)
{
    accessibility.setAttribute(element, AXPositionAttribute, boxed(AXValue(QPointF(100, 300))));
    accessibility.setAttribute(element, AXSizeAttribute, u"large"_s);
    EXPECT_EQ(Utilities::frameOfUIElement(element), QRectF(100, 600, 0, 0));
    accessibility.setAttribute(element, AXPositionAttribute, boxed(AXValue(QSizeF(100, 300))));
    accessibility.setAttribute(element, AXSizeAttribute, boxed(AXValue(QSizeF(30, 40))));
    EXPECT_EQ(Utilities::frameOfUIElement(element), QRectF(0, 900, 0, 0)) << "the size is not read then";
}

TEST_F(UIElementUtilitiesTest, flippedScreenBounds_turnsAtTheTopOfTheFirstScreen)
{
    screens.screenFrames = {QRectF(0, 0, 1440, 900), QRectF(1440, -200, 1920, 1080)};
    EXPECT_EQ(Utilities::flippedScreenBounds(QRectF(100, 200, 300, 400)), QRectF(100, 300, 300, 400));
    EXPECT_EQ(Utilities::flippedScreenBounds(QRectF(100, 300, 300, 400)), QRectF(100, 200, 300, 400));
    screens.screenFrames = {QRectF(0, 50, 1440, 900)};
    EXPECT_EQ(Utilities::flippedScreenBounds(QRectF(0, 0, 10, 10)), QRectF(0, 940, 10, 10));
}

TEST_F(UIElementUtilitiesTest, flippedScreenBounds_roundsTheTopToSinglePrecision)
{
    screens.screenFrames = {QRectF(0, 0, 100, 16777217)};
    EXPECT_EQ(Utilities::flippedScreenBounds(QRectF(0, 0, 1, 1)), QRectF(0, 16777215, 1, 1));
    screens.screenFrames = {QRectF(0, 0.1, 100, 0.2)};
    EXPECT_EQ(Utilities::flippedScreenBounds(QRectF()).y(),
              static_cast<double>(static_cast<float>(0.1 + 0.2)));
    screens.screenFrames.clear();
    EXPECT_EQ(Utilities::flippedScreenBounds(QRectF(1, 2, 3, 4)), QRectF(1, -6, 3, 4)) << "without a screen";
}

TEST_F(UIElementUtilitiesTest, point_isConvertedByTheScreenThatHoldsIt)
{
    screens.screenFrames = {QRectF(0, 0, 1440, 900), QRectF(1000, 0, 1920, 1080)};
    const struct
    {
        const char* sentence;
        QPointF point;
        QPointF converted;
    } rows[] = {
        {"the screen's height less one", {10, 20}, {10, 879}},
        {"of two screens the later one", {1200, 20}, {1200, 1059}},
        {"on the second only", {2000, 1000}, {2000, 79}},
        {"on no screen", {5000, 20}, {0, 0}},
        {"left of all", {-1, 20}, {0, 0}},
        {"the lower left corner belongs to it", {0, 0}, {0, 899}},
        {"the upper edge does not", {10, 900}, {0, 0}},
        {"the right edge does not", {2920, 10}, {0, 0}},
        {"fractions are kept", {10.5, 20.25}, {10.5, 878.75}},
    };
    for (const auto& [sentence, point, converted] : rows)
        EXPECT_EQ(Utilities::carbonScreenPointFromCocoaScreenPoint(point), converted) << sentence;
    screens.screenFrames.clear();
    EXPECT_EQ(Utilities::carbonScreenPointFromCocoaScreenPoint(QPointF(1, 1)), QPointF());
}
