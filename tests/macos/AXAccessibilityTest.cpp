// SPDX-License-Identifier: MIT
#include "platform/macos/accessibility/AXAccessibility.h"

#include "ax/AXValue.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeWorkspace.h"
#include "tests/fakes/SharedPorts.h"
#include "tests/macos/MacTest.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace tarnwick {

class AXAccessibilityTest : public MacTest
{
protected:
    void SetUp() override
    {
        MacTest::SetUp();
        mac.systemWide = std::make_shared<AxNode>();
        mac.applications = {editor, other};
        editor->processIdentifier = 100;
        other->processIdentifier = 200;
        mac.systemWide->attributes = {{u"AXFocusedApplication"_s, QVariant::fromValue(editor)}};
        mac.whileWaiting = [this](double seconds) { clock.advance(seconds); };
    }

    void TearDown() override
    {
        accessibility.reset();
        MacTest::TearDown();
    }

    [[nodiscard]] AXAccessibility& ax()
    {
        if (!accessibility)
            accessibility = std::make_unique<AXAccessibility>();
        return *accessibility;
    }

    /// What reading an attribute with this value gives.
    [[nodiscard]] std::optional<QVariant> readBack(const QVariant& value)
    {
        editor->set(u"AXTested"_s, value);
        return ax().copyAttributeValue(ax().createApplication(100), u"AXTested"_s);
    }

    /// What arrives in the other application when this value is set.
    [[nodiscard]] QVariant written(const QVariant& value)
    {
        editor->set(u"AXTested"_s, 0);
        editor->settable = {u"AXTested"_s};
        editor->written.clear();
        (void)ax().setAttributeValue(ax().createApplication(100), u"AXTested"_s, value);
        return editor->written.isEmpty() ? QVariant() : editor->written.last().second;
    }

    FakeClock clock;
    FakeWorkspace workspace;
    SharedPorts sharedPorts{clock, workspace};
    AxNodeRef editor = std::make_shared<AxNode>();
    AxNodeRef other = std::make_shared<AxNode>();
    std::unique_ptr<AXAccessibility> accessibility;
};

TEST_F(AXAccessibilityTest, everyCall_waitsHalfASecondAtMost)
{
    (void)ax();
    // Set on the system-wide element, so that it holds for all.
    EXPECT_EQ(mac.callsOf(u"AXUIElementSetMessagingTimeout"_s),
              (QList<QVariantList>{{QVariant::fromValue(mac.systemWide), 0.5f}}));
}

TEST_F(AXAccessibilityTest, accessForAllPrograms_isAskedWhereTheSystemHasSuchAThing)
{
    struct Row
    {
        const char* system;
        bool hasApiEnabled;
        bool decidesByProgram;
        bool granted;
        bool trusted;
        bool expected;
    };
    const Row rows[] = {
        {"all or none: on", true, false, true, false, true},
        {"all or none: off", true, false, false, false, false},
        {"all or none: off, a trusted program is isProcessTrusted's", true, false, false, true, false},
        {"program by program: switched on for others only", true, true, true, false, false},
        {"program by program: switched on for us", true, true, true, true, true},
        {"program by program: off", true, true, false, true, false},
        {"the question is gone: trusted", false, true, false, true, true},
        {"the question is gone: not trusted", false, true, false, false, false},
    };
    for (const Row& row : rows) {
        mac.reset();
        if (!row.hasApiEnabled)
            mac.takeAway(u"AXAPIEnabled"_s);
        if (!row.decidesByProgram)
            mac.takeAway(u"AXIsProcessTrustedWithOptions"_s);
        mac.accessGranted = row.granted;
        mac.processTrusted = row.trusted;
        EXPECT_EQ(ax().apiEnabled(), row.expected) << row.system;
        EXPECT_EQ(mac.callsOf(u"AXAPIEnabled"_s).size(), row.hasApiEnabled ? 1 : 0) << row.system;
        EXPECT_TRUE(mac.callsOf(u"AXIsProcessTrustedWithOptions"_s).isEmpty()) << "no prompt";
    }
}

TEST_F(AXAccessibilityTest, trust_asksTheUserTheFirstTimeOnly)
{
    mac.processTrusted = false;
    EXPECT_FALSE(ax().isProcessTrusted());
    EXPECT_FALSE(ax().isProcessTrusted());
    mac.processTrusted = true;
    EXPECT_TRUE(ax().isProcessTrusted());
    EXPECT_EQ(mac.callsOf(u"AXIsProcessTrustedWithOptions"_s),
              (QList<QVariantList>{{QVariantMap{{u"AXTrustedCheckOptionPrompt"_s, true}}}}));
    EXPECT_EQ(mac.callsOf(u"AXIsProcessTrusted"_s).size(), 2);
}

TEST_F(AXAccessibilityTest, trust_onASystemWithoutThePrompt_isTheOldQuestion)
{
    mac.takeAway(u"AXIsProcessTrustedWithOptions"_s);
    mac.processTrusted = true;
    EXPECT_TRUE(ax().isProcessTrusted());
    EXPECT_TRUE(mac.callsOf(u"AXIsProcessTrustedWithOptions"_s).isEmpty());
}

TEST_F(AXAccessibilityTest, systemWide_leadsToTheFocusedApplication)
{
    const auto systemWide = ax().createSystemWide();
    ASSERT_TRUE(systemWide);
    const auto focused = ax().copyAttributeValue(systemWide, u"AXFocusedApplication"_s);
    ASSERT_TRUE(focused);
    EXPECT_EQ(focused->value<UIElementRef>(), ax().createApplication(100));
    EXPECT_EQ(ax().getPid(focused->value<UIElementRef>()), 100);
}

TEST_F(AXAccessibilityTest, systemWide_isEmptyWhereThereIsNoAccessibility)
{
    mac.systemWide.reset();
    EXPECT_FALSE(ax().createSystemWide());
}

TEST_F(AXAccessibilityTest, focusedApplicationThatTheSystemDoesNotName_isTheWorkspacesActiveOne)
{
    const auto systemWide = ax().createSystemWide();
    workspace.active = Workspace::ActiveApplication{u"Other"_s, 200};
    mac.processTrusted = false;
    const auto focused = ax().copyAttributeValue(systemWide, u"AXFocusedApplication"_s);
    ASSERT_TRUE(focused) << "without access";
    EXPECT_EQ(ax().getPid(focused->value<UIElementRef>()), 200);
    EXPECT_FALSE(ax().copyAttributeValue(focused->value<UIElementRef>(), u"AXMenuBar"_s));
    mac.processTrusted = true;
    mac.systemWide->attributes.clear();
    EXPECT_TRUE(ax().copyAttributeValue(systemWide, u"AXFocusedApplication"_s)) << "with no answer";

    EXPECT_FALSE(ax().copyAttributeValue(systemWide, u"AXRole"_s)) << "that attribute only";
    EXPECT_FALSE(ax().copyAttributeValue(ax().createApplication(100), u"AXFocusedApplication"_s))
        << "and of that element only";
    workspace.active->processIdentifier.reset();
    EXPECT_FALSE(ax().copyAttributeValue(systemWide, u"AXFocusedApplication"_s));
    workspace.active.reset();
    EXPECT_FALSE(ax().copyAttributeValue(systemWide, u"AXFocusedApplication"_s));
}

TEST_F(AXAccessibilityTest, elements_areEqualWhenTheyStandForTheSame)
{
    EXPECT_TRUE(ax().createApplication(100) == ax().createApplication(100));
    EXPECT_FALSE(ax().createApplication(100) == ax().createApplication(200));
    EXPECT_FALSE(ax().createApplication(100) == UIElementRef());
}

TEST_F(AXAccessibilityTest, values_keepTheirKinds)
{
    struct Row
    {
        const char* kind;
        QVariant value;
    };
    const Row rows[] = {
        {"text", u"Größe ⌘"_s},
        {"empty text", u""_s},
        {"true", true},
        {"false", false},
        {"whole number", qint64(-5)},
        {"large number", std::numeric_limits<qint64>::max()},
        {"floating point", 12.5},
        {"point", QVariant::fromValue(AXValue(QPointF(1.5, -2)))},
        {"size", QVariant::fromValue(AXValue(QSizeF(3, 4)))},
        {"rectangle", QVariant::fromValue(AXValue(QRectF(1, 2, 3, 4)))},
        {"range", QVariant::fromValue(AXValue(AXRange{5, -6}))},
        {"list", QVariantList{u"a"_s, 1, true}},
        {"empty list", QVariantList()},
        {"link", QUrl(u"https://example.org/a%20b"_s)},
    };
    for (const Row& row : rows) {
        const auto read = readBack(row.value);
        ASSERT_TRUE(read) << row.kind;
        EXPECT_EQ(*read, row.value) << row.kind;
        if (row.value.typeId() == QMetaType::Bool || row.value.typeId() == QMetaType::Double) {
            EXPECT_EQ(read->typeId(), row.value.typeId()) << row.kind;
        }
    }
}

TEST_F(AXAccessibilityTest, elementsInsideAList_areElements)
{
    const auto read = readBack(QVariantList{QVariant::fromValue(other), u"text"_s});
    ASSERT_TRUE(read);
    const QVariantList list = read->toList();
    ASSERT_EQ(list.size(), 2);
    EXPECT_EQ(list.at(0).value<UIElementRef>(), ax().createApplication(200));
    EXPECT_EQ(list.at(1).toString(), u"text"_s);
}

TEST_F(AXAccessibilityTest, valueOfAnotherKind_isItsDescriptionAndNeitherTextNorNumber)
{
    const auto read = readBack(QByteArray("bytes"));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->typeId(), QMetaType::QByteArray);
    EXPECT_EQ(read->toString(), u"<QByteArray>"_s);
}

TEST_F(AXAccessibilityTest, structuredValueThatCannotBeRead_isAStructuredValueOfNoType)
{
    mac.fail(u"AXValueGetValue"_s);
    const auto read = readBack(QVariant::fromValue(AXValue(QPointF(1, 2))));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->metaType(), QMetaType::fromType<AXValue>());
    EXPECT_EQ(read->value<AXValue>().type(), AXValueType::None);
}

TEST_F(AXAccessibilityTest, valuesThatAreSet_arriveInTheirKinds)
{
    struct Row
    {
        const char* kind;
        QVariant value;
        int type;
    };
    const Row rows[] = {
        {"text", u"new"_s, QMetaType::QString},
        {"boolean", true, QMetaType::Bool},
        {"whole number", 7, QMetaType::LongLong},
        {"single precision", 12.5f, QMetaType::Float},
        {"double precision", 12.5, QMetaType::Double},
        {"point", QVariant::fromValue(AXValue(QPointF(1, 2))), qMetaTypeId<AXValue>()},
        {"size", QVariant::fromValue(AXValue(QSizeF(1, 2))), qMetaTypeId<AXValue>()},
        {"rectangle", QVariant::fromValue(AXValue(QRectF(1, 2, 3, 4))), qMetaTypeId<AXValue>()},
        {"range", QVariant::fromValue(AXValue(AXRange{1, 2})), qMetaTypeId<AXValue>()},
    };
    for (const Row& row : rows) {
        const QVariant arrived = written(row.value);
        EXPECT_EQ(arrived, row.value) << row.kind;
        EXPECT_EQ(arrived.typeId(), row.type) << row.kind;
    }
    EXPECT_EQ(written(QVariant::fromValue(ax().createApplication(200))).value<AxNodeRef>(), other);
}

TEST_F(AXAccessibilityTest, structuredTypes_haveThePlatformsNumbers)
{
    (void)written(QVariant::fromValue(AXValue(QPointF())));
    (void)written(QVariant::fromValue(AXValue(QSizeF())));
    (void)written(QVariant::fromValue(AXValue(QRectF())));
    (void)written(QVariant::fromValue(AXValue(AXRange())));
    const QList<QVariantList> made = mac.callsOf(u"AXValueCreate"_s);
    ASSERT_EQ(made.size(), 4);
    for (int type = 1; type <= 4; ++type)
        EXPECT_EQ(made.at(type - 1).first(), type);
}

TEST_F(AXAccessibilityTest, valueThatCannotBeMade_isNotSet)
{
    EXPECT_FALSE(written(QVariant::fromValue(AXValue())).isValid());
    EXPECT_FALSE(written(QByteArray("bytes")).isValid());
    EXPECT_FALSE(written(QVariant()).isValid());
    mac.fail(u"AXValueCreate"_s);
    EXPECT_FALSE(written(QVariant::fromValue(AXValue(QPointF(1, 2)))).isValid());
    EXPECT_TRUE(mac.callsOf(u"AXUIElementSetAttributeValue"_s).isEmpty());
}

TEST_F(AXAccessibilityTest, names_areListedInOrder)
{
    editor->attributes = {
        {u"AXRole"_s, u"AXApplication"_s}, {u"AXHidden"_s, false}, {u"AXTitle"_s, u"Editor"_s}};
    editor->unlisted = {u"AXHidden"_s};
    editor->actions = {{u"AXPress"_s, u"press"_s}, {u"AXPick"_s, u"pick"_s}};
    const auto application = ax().createApplication(100);
    EXPECT_EQ(ax().copyAttributeNames(application), (QStringList{u"AXRole"_s, u"AXTitle"_s}));
    EXPECT_EQ(ax().copyActionNames(application), (QStringList{u"AXPress"_s, u"AXPick"_s}));
    EXPECT_EQ(ax().copyActionDescription(application, u"AXPick"_s), u"pick"_s);
    EXPECT_FALSE(ax().copyActionDescription(application, u"AXRaise"_s));
}

TEST_F(AXAccessibilityTest, valueCount_isToldWithoutFetching)
{
    editor->attributes = {{u"AXChildren"_s, QVariantList{1, 2, 3}}, {u"AXTitle"_s, u"Editor"_s}};
    const auto application = ax().createApplication(100);
    EXPECT_EQ(ax().getAttributeValueCount(application, u"AXChildren"_s), 3);
    EXPECT_FALSE(ax().getAttributeValueCount(application, u"AXTitle"_s)) << "no list";
    EXPECT_FALSE(ax().getAttributeValueCount(application, u"AXRows"_s));
    EXPECT_TRUE(mac.callsOf(u"AXUIElementCopyAttributeValue"_s).isEmpty());
}

TEST_F(AXAccessibilityTest, settable_isToldForWhatIsThere)
{
    editor->attributes = {{u"AXPosition"_s, 0}, {u"AXTitle"_s, u"Editor"_s}};
    editor->settable = {u"AXPosition"_s};
    const auto application = ax().createApplication(100);
    EXPECT_EQ(ax().isAttributeSettable(application, u"AXPosition"_s), true);
    EXPECT_EQ(ax().isAttributeSettable(application, u"AXTitle"_s), false);
    EXPECT_FALSE(ax().isAttributeSettable(application, u"AXSize"_s));
    EXPECT_FALSE(ax().setAttributeValue(application, u"AXTitle"_s, u"new"_s));
}

TEST_F(AXAccessibilityTest, press_isPerformedOnce)
{
    editor->actions = {{u"AXPress"_s, u"press"_s}};
    const auto application = ax().createApplication(100);
    EXPECT_TRUE(ax().performAction(application, u"AXPress"_s));
    EXPECT_EQ(editor->performed, QStringList{u"AXPress"_s});
    EXPECT_FALSE(ax().performAction(application, u"AXPick"_s));
    EXPECT_EQ(mac.callsOf(u"AXUIElementPerformAction"_s),
              (QList<QVariantList>{{QVariant::fromValue(editor), u"AXPress"_s},
                                   {QVariant::fromValue(editor), u"AXPick"_s}}));
}

TEST_F(AXAccessibilityTest, pressThatIsNotAnsweredInTime_wasSentAllTheSame)
{
    const auto application = ax().createApplication(100);
    mac.fail(u"AXUIElementPerformAction"_s, -25204);
    EXPECT_TRUE(ax().performAction(application, u"AXPress"_s));
    mac.fail(u"AXUIElementPerformAction"_s, -25202);
    EXPECT_FALSE(ax().performAction(application, u"AXPress"_s));
}

TEST_F(AXAccessibilityTest, everythingOfAnElementThatIsNotThere_fails)
{
    class Foreign final : public UIElement
    {
    public:
        [[nodiscard]] bool isEqualTo(const UIElement& element) const override { return this == &element; }
    };
    editor->gone = true;
    const struct
    {
        const char* which;
        UIElementRef element;
    } rows[] = {
        {"an empty handle", UIElementRef()},
        {"a handle of another adapter", UIElementRef(std::make_shared<Foreign>())},
        {"an application that has quit", ax().createApplication(100)},
        {"a process that never was", ax().createApplication(999)},
    };
    for (const auto& [which, element] : rows) {
        EXPECT_FALSE(ax().copyAttributeNames(element)) << which;
        EXPECT_FALSE(ax().copyAttributeValue(element, u"AXRole"_s)) << which;
        EXPECT_FALSE(ax().getAttributeValueCount(element, u"AXChildren"_s)) << which;
        EXPECT_FALSE(ax().isAttributeSettable(element, u"AXRole"_s)) << which;
        EXPECT_FALSE(ax().setAttributeValue(element, u"AXRole"_s, u"x"_s)) << which;
        EXPECT_FALSE(ax().copyActionNames(element)) << which;
        EXPECT_FALSE(ax().copyActionDescription(element, u"AXPress"_s)) << which;
        EXPECT_FALSE(ax().performAction(element, u"AXPress"_s)) << which;
    }
    EXPECT_FALSE(ax().getPid(rows[0].element));
    EXPECT_FALSE(ax().getPid(rows[1].element));
    mac.fail(u"AXUIElementGetPid"_s, -25202);
    EXPECT_FALSE(ax().getPid(rows[2].element));
}

TEST_F(AXAccessibilityTest, valueThatIsNothing_isNoValue)
{
    editor->attributes = {{u"AXTitle"_s, QVariant()}};
    EXPECT_FALSE(ax().copyAttributeValue(ax().createApplication(100), u"AXTitle"_s));
}

TEST_F(AXAccessibilityTest, applicationThatDoesNotAnswer_isNotReadAgainForHalfASecond)
{
    editor->attributes = {{u"AXTitle"_s, u"Editor"_s}};
    other->attributes = {{u"AXTitle"_s, u"Other"_s}};
    editor->actions = {{u"AXPress"_s, u"press"_s}};
    editor->hung = true;
    const auto application = ax().createApplication(100);
    EXPECT_FALSE(ax().copyAttributeValue(application, u"AXTitle"_s));
    const auto asked = mac.callsOf(u"AXUIElementCopyAttributeValue"_s).size();
    EXPECT_FALSE(ax().copyAttributeValue(application, u"AXTitle"_s));
    EXPECT_FALSE(ax().copyAttributeNames(application));
    EXPECT_EQ(mac.callsOf(u"AXUIElementCopyAttributeValue"_s).size(), asked) << "it was not asked";
    EXPECT_TRUE(mac.callsOf(u"AXUIElementCopyAttributeNames"_s).isEmpty());
    EXPECT_EQ(ax().copyAttributeValue(ax().createApplication(200), u"AXTitle"_s), u"Other"_s);

    editor->hung = false;
    EXPECT_TRUE(ax().performAction(application, u"AXPress"_s)) << "a press is always sent";
    EXPECT_FALSE(ax().copyAttributeValue(application, u"AXTitle"_s));
    clock.advance(0.5);
    EXPECT_EQ(ax().copyAttributeValue(application, u"AXTitle"_s), u"Editor"_s);
    EXPECT_EQ(ax().copyAttributeValue(application, u"AXTitle"_s), u"Editor"_s);
}

TEST_F(AXAccessibilityTest, applicationThatDidNotAnswer_isReadAgainWhenAnotherReadingBegins)
{
    editor->attributes = {{u"AXTitle"_s, u"Editor"_s}};
    editor->hung = true;
    const auto application = ax().createApplication(100);
    EXPECT_FALSE(ax().copyAttributeValue(application, u"AXTitle"_s));
    editor->hung = false;
    ax().beginReading();
    EXPECT_EQ(ax().copyAttributeValue(application, u"AXTitle"_s), u"Editor"_s);
}

TEST_F(AXAccessibilityTest, applicationThatRefusesAtOnce_lacksThatValueAndNoMore)
{
    editor->attributes = {{u"AXTitle"_s, u"Editor"_s}};
    const auto application = ax().createApplication(100);
    editor->refusing = true;
    EXPECT_FALSE(ax().copyAttributeValue(application, u"AXTitle"_s));
    editor->refusing = false;
    EXPECT_EQ(ax().copyAttributeValue(application, u"AXTitle"_s), u"Editor"_s);
}

TEST_F(AXAccessibilityTest, applicationThatRefusesLate_wasWaitedForAllTheSame)
{
    editor->attributes = {{u"AXTitle"_s, u"Editor"_s}};
    editor->hung = true;
    mac.whileWaiting = [this](double seconds) { clock.advance(seconds - 0.01); };
    const auto application = ax().createApplication(100);
    EXPECT_FALSE(ax().copyAttributeValue(application, u"AXTitle"_s));
    editor->hung = false;
    EXPECT_FALSE(ax().copyAttributeValue(application, u"AXTitle"_s)) << "timers are not exact";
}

TEST_F(AXAccessibilityTest, systemThatDoesNotAnswer_isAskedAgainAtOnce)
{
    const auto systemWide = ax().createSystemWide();
    mac.systemWide->hung = true;
    EXPECT_FALSE(ax().copyAttributeValue(systemWide, u"AXFocusedApplication"_s));
    mac.systemWide->hung = false;
    EXPECT_TRUE(ax().copyAttributeValue(systemWide, u"AXFocusedApplication"_s))
        << "it belongs to no process that could be left alone";
}

TEST_F(AXAccessibilityTest, applicationThatAnswersWithAnError_isReadAgainAtOnce)
{
    editor->attributes = {{u"AXTitle"_s, u"Editor"_s}};
    const auto application = ax().createApplication(100);
    EXPECT_FALSE(ax().copyAttributeValue(application, u"AXRows"_s));
    EXPECT_EQ(ax().copyAttributeValue(application, u"AXTitle"_s), u"Editor"_s);
}

} // namespace tarnwick
